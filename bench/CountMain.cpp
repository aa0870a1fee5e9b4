// bench_counts: does each thing that users wait for, so that callgrind counts its instructions (scripts/counts.sh).
// They do not move with the machine's load, as long as no clock has a say: timers do not run here, but for those that a
// file's reading lets run, and the marks, which are found in slices of time, are off.

#include "bench/BenchDocument.h"
#include "bench/Desk.h"
#include "bench/SpeedRows.h"
#include "editor/GridCommands.h"
#include "editor/GridFinder.h"
#include "editor/frmPrFile.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <string>
#include <valgrind/callgrind.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int blockRows = 1000;
constexpr GridBlock firstCell{1, 1, 1, 1};
constexpr GridBlock firstRows{-1, 1, benchColumnCount, blockRows};

/// Has the instructions of work counted under that name.
void count(const std::string &name, const auto &work)
{
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
}

/// Lets the windows paint what has changed. Timers do not run.
void paint()
{
    QApplication::sendPostedEvents();
}

void press(const Desk &desk, Qt::Key key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier);
    QApplication::sendEvent(&desk.grid(), &event);
}

struct Command
{
    const char *name;
    GridBlock selected;
    void (*run)(const Desk &desk);
};

constexpr Command commands[] = {
    {"Add line", firstCell, [](const Desk &desk) { desk.editor().commands().addLines(); }},
    {"Delete of 1,000 rows", firstRows, [](const Desk &desk) { desk.editor().commands().deleteLines(); }},
    {"Paste of 1,000 rows", firstCell, [](const Desk &desk) { desk.editor().commands().paste(); }},
    {"Add-paste of 1,000 rows", firstCell, [](const Desk &desk) { desk.editor().commands().addPaste(); }},
    {"fill of 1,000 rows", firstRows, [](const Desk &desk) { press(desk, Qt::Key_D); }},
};

void countCommands(const Desk &desk)
{
    desk.grid().selectBlock(firstRows);
    desk.editor().commands().copy();
    for (const Command &command : commands) {
        desk.restore();
        desk.grid().setRowCount(desk.rowCount() - blockRows); // the greatest number shall not be exceeded
        desk.grid().selectBlock(command.selected);
        paint();
        const std::string name = command.name;
        count(name, [&] { command.run(desk); });
        count("paint after " + name, paint);
        count("undo of " + name, [&] { press(desk, Qt::Key_Z); });
        paint();
        count("redo of " + name, [&] { press(desk, Qt::Key_Y); });
        paint();
    }
    desk.restore();
    paint();
}

void countScrolling(const Desk &desk)
{
    constexpr int steps = 20;
    desk.grid().setTopRow(1);
    paint();
    const int page = desk.grid().bottomRow() - desk.grid().topRow();
    int top = 1;
    const auto scroll = [&](int rows) {
        for (int step = 0; step < steps; ++step) {
            desk.grid().setTopRow(top += rows);
            paint();
        }
    };
    count("scrolling 20 pages", [&] { scroll(page); });
    count("scrolling 20 rows", [&] { scroll(1); });
}

void countFind(const Desk &desk)
{
    desk.editor().finder().open();
    auto *field = desk.editor().findChild<QLineEdit *>(u"txtFind"_s);
    paint();
    count("find without a match", [&] { field->setText(u"a\u3042"_s); });
}

void countFiles()
{
    const BenchDocument document(maxRows);
    count("read", [&] { document.read(false); });
    count("save", [&] { document.save(false); });
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    countFiles();
    Desk desk(maxRows);
    desk.grid().setMarks(nullptr);
    count("open", [&] { desk.openAgain(); });
    desk.closeActive();
    countCommands(desk);
    countScrolling(desk);
    countFind(desk);
    return 0;
}
