#pragma once

#include <QPoint>
#include <QSize>

class QWidget;

// Where a dialog's window can stand. The screen is that of its parent, without the desktop's own bars; what the
// window's frame takes is guessed before the window is shown: as much as its parent's takes, or as the style draws it.

/// The largest inner size with which the window is on its screen with its frame.
QSize roomOnScreen(const QWidget &window);

/// The outer top left corner nearest to wanted from which a window of that inner size does not leave its screen; of one
/// that is too large the top left corner is on the screen.
QPoint placeOnScreen(const QWidget &window, const QPoint &wanted, const QSize &innerSize);
