// bench_counts: does each thing that users wait for, so that callgrind counts its instructions (scripts/counts.sh).
// They do not move with the machine's load, as long as no clock has a say: timers do not run here, but for those that a
// file's reading lets run, and the marks, which are found in slices of time, are off.

#include "bench/BenchDocument.h"
#include "bench/Desk.h"
#include "bench/SpeedRows.h"
#include "bench/TimedCommands.h"
#include "editor/GridFinder.h"
#include "editor/frmPrFile.h"

#include <QApplication>
#include <QLineEdit>

#include <string>
#include <valgrind/callgrind.h>

using namespace Qt::StringLiterals;

namespace {

/// Has the instructions of work counted under that name.
void count(const std::string &name, const auto &work)
{
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
}

void countCommands(const Desk &desk)
{
    copyRows(desk);
    for (const TimedCommand &command : timedCommands()) {
        prepare(command, desk);
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
