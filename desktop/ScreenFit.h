#pragma once

#include <QPoint>
#include <QSize>

class QWidget;

// Where a dialog can be on the screen of its parent, without the desktop's own bars. Before the window is shown the
// size of its frame is an estimate: that of its parent's frame, or what the style draws.

/// The largest inner size with which the window, its frame included, fits on its screen.
QSize maxSizeOnScreen(const QWidget &window);

/// The outer top left corner, as near to wanted as possible, at which a window of that inner size fits on its screen.
/// If the window is too large, its top left corner is on the screen.
QPoint positionOnScreen(const QWidget &window, const QPoint &wanted, const QSize &innerSize);
