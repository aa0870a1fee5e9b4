// What a user meets in an editor window.

#include "bench/Baselines.h"
#include "bench/BenchDocument.h"
#include "bench/Desk.h"
#include "bench/PlainView.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"
#include "bench/TimedCommands.h"
#include "editor/frmPrFile.h"
#include "print/GridPrinter.h"
#include "print/PrintJob.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPdfWriter>
#include <QScrollBar>

#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr double milliseconds = 1000;
constexpr double maxGrowth = 1.1;
constexpr double frameTime = 8; // ms

Measured measureOpen(Desk &desk)
{
    const auto own = [&desk] {
        const double seconds = secondsOf([&desk] { desk.openAgain(); });
        desk.closeActive();
        return milliseconds * seconds;
    };
    const auto baseline = [&desk] {
        return milliseconds * secondsOf([&desk] {
            const QStringList fields = baselines::splitFile(desk.fileName());
            baselines::passEvents(desk.rowCount());
        });
    };
    return sideBySide(own, baseline);
}

/// The time of moving all rows by so many, as a command at the top of the table has to.
double moveSeconds(const PlainRows &texts, int by)
{
    PlainRows rows = texts;
    return secondsOf([&rows, by] { std::move_backward(rows.begin(), rows.end() - by, rows.end()); });
}

/// The milliseconds of a command, its undo and its redo, each with and without the paint that follows.
struct CommandTimes
{
    std::vector<double> plain;
    std::vector<double> painted;

    double take(const auto &work)
    {
        plain.push_back(milliseconds * secondsOf(work));
        painted.push_back(plain.back() + milliseconds * secondsOf(paint));
        return plain.back();
    }
    void add(SpeedTable &table, const std::string &name, double moved) const
    {
        table.add(name, "std::move of the same texts", "ms", {median(plain), moved}, 2);
        table.addLimit(name + ", with the paint that follows", "ms", median(painted), frameTime);
    }
};

void addCommandRows(SpeedTable &table, Desk &desk)
{
    const PlainRows texts = desk.plainRows();
    copyRows(desk);
    for (const TimedCommand &command : timedCommands()) {
        CommandTimes run;
        CommandTimes undo;
        CommandTimes redo;
        const auto own = [&] {
            desk.restore();
            desk.grid().setRowCount(desk.rowCount() - commandRows); // the greatest number shall not be exceeded
            desk.grid().selectBlock(command.selected);
            QApplication::processEvents();
            run.take([&] { command.run(desk); });
            undo.take([&] { press(desk, Qt::Key_Z); });
            return redo.take([&] { press(desk, Qt::Key_Y); });
        };
        const double moved = sideBySide(own, [&] { return milliseconds * moveSeconds(texts, commandRows); }).other;
        run.add(table, command.name, moved);
        undo.add(table, std::string("undo of ") + command.name, moved);
        redo.add(table, std::string("redo of ") + command.name, moved);
    }
    desk.restore();
}

/// Scrolls one of the views by so many rows at a time.
double scrollSeconds(const std::function<void(int)> &show, int steps, int rows)
{
    return secondsOf([&] {
        for (int i = 0; i < steps; ++i) {
            show(1 + i * rows);
            QApplication::processEvents();
        }
    });
}

void addScrollRows(SpeedTable &table, Desk &desk)
{
    constexpr int steps = 1000;
    constexpr int pageRows = (maxRows - 100) / steps;
    const PlainRows texts = desk.plainRows();
    PlainPage page(desk.grid(), texts);
    PlainView view(texts);
    view.resize(desk.grid().size());
    page.show();
    view.show();
    QApplication::processEvents();
    const auto time = [](const auto &show, int rows) {
        return [=] { return milliseconds / steps * scrollSeconds(show, steps, rows); };
    };
    const auto inGrid = [&desk](int row) { desk.grid().setTopRow(row); };
    const auto onPage = [&page](int row) {
        page.setTopRow(row);
        page.update();
    };
    const auto inView = [&view](int row) { view.verticalScrollBar()->setValue(row); };
    table.add("scrolling 1,000 pages, a page", "the same cells painted as plain text", "ms",
        sideBySide(time(inGrid, pageRows), time(onPage, pageRows)), 1.5);
    table.add("scrolling 1,000 pages, a page", "a plain QTableView", "ms",
        sideBySide(time(inGrid, pageRows), time(inView, pageRows)), 1);
    table.add(
        "scrolling 1,000 rows, a row", "a plain QTableView", "ms", sideBySide(time(inGrid, 1), time(inView, 1)), 1);
}

void addFindRow(SpeedTable &table, Desk &desk)
{
    QString all;
    for (const PlainRow &row : desk.plainRows()) {
        for (const QString &text : row) {
            all += text;
        }
    }
    const QString searched = u"a\u3042"_s;
    const auto own = [&] {
        desk.grid().setSearchedText({});
        return milliseconds * secondsOf([&] {
            desk.grid().setSearchedText(searched);
            desk.grid().goToFoundFrom(1, 1);
        });
    };
    const auto baseline = [&] {
        return milliseconds * secondsOf([&] {
            const void *found = memmem(all.utf16(), std::size_t(all.size()) * sizeof(char16_t), searched.utf16(),
                std::size_t(searched.size()) * sizeof(char16_t));
            if (found != nullptr) {
                qFatal("the text is there");
            }
        });
    };
    table.add("find a text that is not there", "memmem over the same UTF-16", "ms", sideBySide(own, baseline), 3);
    desk.grid().setSearchedText({});
}

/// By the clock, from the command to the closed file.
void addPrintRow(SpeedTable &table, Desk &desk)
{
    const QTemporaryDir folder(benchFolderTemplate());
    QPdfWriter paper(folder.filePath(u"rows.pdf"_s));
    QElapsedTimer timer;
    timer.start();
    PrintJob job(paper, u"rows"_s);
    if (printGrid(desk.grid(), {}, job, nullptr) != PrintOutcome::Done || !job.end()) {
        qFatal("not printed");
    }
    table.addLeast("32,767 rows to PDF", "pages a second", job.pageCount() * 1e9 / double(timer.nsecsElapsed()), 500);
}

} // namespace

void addEditorRows(SpeedTable &table)
{
    auto typical = std::make_unique<Desk>(typicalRows);
    const Measured openTypical = measureOpen(*typical);
    typical.reset();
    Desk desk(maxRows);
    const Measured open = measureOpen(desk);
    table.add("open 32,767 rows to the filled grid", "decode, split, as many empty event passes", "ms", open, 1.8);
    table.add("open, growth to 32,767 rows", "1,000 rows", "us a row",
        {open.own * 1000 / maxRows, openTypical.own * 1000 / typicalRows}, maxGrowth);
    addCommandRows(table, desk);
    addScrollRows(table, desk);
    addFindRow(table, desk);
    addPrintRow(table, desk);
}
