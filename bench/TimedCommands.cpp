#include "bench/TimedCommands.h"

#include "bench/SpeedRows.h"
#include "editor/GridCommands.h"
#include "editor/frmPrFile.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

constexpr GridBlock firstCell{1, 1, 1, 1};
constexpr GridBlock firstRows{-1, 1, benchColumnCount, commandRows};

constexpr TimedCommand commands[] = {
    {"Add line", firstCell, [](const Desk &desk) { desk.editor().commands().addLines(); }},
    {"Delete of 1,000 rows", firstRows, [](const Desk &desk) { desk.editor().commands().deleteLines(); }},
    {"Paste of 1,000 rows", firstCell, [](const Desk &desk) { desk.editor().commands().paste(); }},
    {"Add-paste of 1,000 rows", firstCell, [](const Desk &desk) { desk.editor().commands().addPaste(); }},
    {"fill of 1,000 rows", firstRows, [](const Desk &desk) { press(desk, Qt::Key_D); }},
};

} // namespace

std::span<const TimedCommand> timedCommands()
{
    return commands;
}

void copyRows(const Desk &desk)
{
    desk.grid().selectBlock(firstRows);
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
