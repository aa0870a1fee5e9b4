// What a user meets in an editor window.

#include "bench/Baselines.h"
#include "bench/Desk.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"
#include "editor/GridCommands.h"
#include "editor/frmPrFile.h"

#include <QApplication>

#include <memory>

namespace {

constexpr double milliseconds = 1000;
constexpr double maxGrowth = 1.2;
constexpr double frameTime = 16; // ms
constexpr int blockRows = 1000;
constexpr GridBlock firstCell{1, 1, 1, 1};
constexpr GridBlock firstRows{-1, 1, benchColumnCount, blockRows};

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

/// A command on the first rows of the document, and the rows as they were before it.
struct Command
{
    const char *name;
    GridBlock selected;
    void (*run)(GridCommands &grid);
};

constexpr Command commands[] = {
    {"Add line", firstCell, [](GridCommands &grid) { grid.addLines(); }},
    {"Delete of 1,000 rows", firstRows, [](GridCommands &grid) { grid.deleteLines(); }},
    {"Paste of 1,000 rows", firstCell, [](GridCommands &grid) { grid.paste(); }},
    {"Add-paste of 1,000 rows", firstCell, [](GridCommands &grid) { grid.addPaste(); }},
};

/// The time of moving all rows by so many, as a command at the top of the table has to.
double moveSeconds(PlainRows &rows, int by)
{
    return secondsOf([&rows, by] { std::move_backward(rows.begin(), rows.end() - by, rows.end()); });
}

void addCommandRows(SpeedTable &table, Desk &desk)
{
    const PlainRows texts = desk.plainRows();
    desk.grid().selectBlock(firstRows);
    desk.editor().commands().copy();
    std::vector<double> withPaint;
    for (const Command &command : commands) {
        withPaint.clear();
        const auto own = [&] {
            desk.grid().setRowCount(desk.rowCount() - blockRows); // the greatest number shall not be exceeded
            desk.grid().selectBlock(command.selected);
            QApplication::processEvents();
            const double seconds = secondsOf([&] { command.run(desk.editor().commands()); });
            withPaint.push_back(milliseconds * (seconds + secondsOf([] { QApplication::processEvents(); })));
            return milliseconds * seconds;
        };
        const auto baseline = [&] {
            PlainRows rows = texts;
            return milliseconds * moveSeconds(rows, blockRows);
        };
        table.add(command.name, "std::move of the same texts", "ms", sideBySide(own, baseline), 3);
        table.addLimit(std::string(command.name) + ", with the paint that follows", "ms", median(withPaint), frameTime);
        desk.restore();
    }
}

void addScrollRow(SpeedTable &table, Desk &desk)
{
    constexpr int pages = 1000;
    const PlainRows texts = desk.plainRows();
    PlainPage page(desk.grid(), texts);
    page.show();
    QApplication::processEvents();
    const int step = (maxRows - 100) / pages;
    const auto own = [&] {
        return milliseconds / pages * secondsOf([&] {
            for (int i = 0; i < pages; ++i) {
                desk.grid().setTopRow(1 + i * step);
                QApplication::processEvents();
            }
        });
    };
    const auto baseline = [&] {
        return milliseconds / pages * secondsOf([&] {
            for (int i = 0; i < pages; ++i) {
                page.setTopRow(1 + i * step);
                page.update();
                QApplication::processEvents();
            }
        });
    };
    table.add(
        "scrolling 1,000 pages, a page", "the same cells painted as plain text", "ms", sideBySide(own, baseline), 2);
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
    addScrollRow(table, desk);
}
