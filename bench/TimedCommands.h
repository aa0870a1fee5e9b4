#pragma once

#include "bench/Desk.h"
#include "grid/SpreadGrid.h"

#include <span>

/// A command on the first rows of the document.
struct TimedCommand
{
    const char *name;
    GridBlock selected;
    void (*run)(const Desk &desk);
};

/// How many rows a command moves.
inline constexpr int commandRows = 1000;

/// The commands that are measured. Some paste: copyRows() goes before them.
std::span<const TimedCommand> timedCommands();

/// Copies the first rows.
void copyRows(const Desk &desk);

/// Presses Ctrl and the key in the grid.
void press(const Desk &desk, Qt::Key key);

/// Lets the windows paint what has changed. Timers do not run: the marks, which are found when there is time, come
/// later.
void paint();
