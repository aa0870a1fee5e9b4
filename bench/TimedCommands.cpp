#include "bench/TimedCommands.h"

#include "bench/SpeedRows.h"
#include "editor/GridCommands.h"
#include "editor/frmPrFile.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

constexpr GridBlock firstCell{1, 1, 1, 1};

constexpr TimedCommand commands[] = {
    {"Add line", false, [](const Desk &desk) { desk.editor().commands().addLines(); }},
    {"Delete of 1,000 rows", true, [](const Desk &desk) { desk.editor().commands().deleteLines(); }},
    {"Paste of 1,000 rows", false, [](const Desk &desk) { desk.editor().commands().paste(); }},
    {"Add-paste of 1,000 rows", false, [](const Desk &desk) { desk.editor().commands().addPaste(); }},
    {"fill of 1,000 rows", true, [](const Desk &desk) { press(desk, Qt::Key_D); }},
};

} // namespace

std::span<const TimedCommand> timedCommands()
{
    return commands;
}

int commandRows(const Desk &desk)
{
    constexpr int most = 1000;
    return most * desk.rowCount() / maxRows;
}

void prepare(const TimedCommand &command, const Desk &desk)
{
    const int rows = commandRows(desk);
    desk.restore();
    desk.grid().setRowCount(desk.rowCount() - rows);
    desk.grid().selectBlock(command.wholeRows ? GridBlock{-1, 1, benchColumnCount, rows} : firstCell);
}

void copyRows(const Desk &desk)
{
    const int rows = commandRows(desk);
    desk.grid().selectBlock({-1, rows + 1, benchColumnCount, 2 * rows});
    desk.editor().commands().copy();
}

void press(const Desk &desk, Qt::Key key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier);
    QApplication::sendEvent(&desk.grid(), &event);
}

void paint()
{
    QApplication::sendPostedEvents();
}
