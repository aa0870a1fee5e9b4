#pragma once

#include "bench/Desk.h"
#include "grid/SpreadGrid.h"

#include <span>

/// A command on the first rows of the document.
struct TimedCommand
{
    const char *name;
    bool wholeRows; ///< commandRows() are selected for it, and not only the first cell
    void (*run)(const Desk &desk);
};

/// How many rows a command is about: a thousand of the greatest number, and of fewer as large a part.
int commandRows(const Desk &desk);

/// The commands that are measured. Some paste: copyRows() goes before them.
std::span<const TimedCommand> timedCommands();

/// Shows the document's texts again, with so many rows less that the commands can add theirs, and selects what the
/// command is about.
void prepare(const TimedCommand &command, const Desk &desk);

/// Copies the rows after those that the commands change: rows that are pasted onto themselves would change nothing.
void copyRows(const Desk &desk);

/// Presses Ctrl and the key in the grid.
void press(const Desk &desk, Qt::Key key);

/// Lets the windows paint what has changed. Timers do not run: the marks, which are found when there is time, come
/// later.
void paint();
