#pragma once

#include <QList>
#include <QRect>

class QMdiArea;

/// The rectangles of count windows tiled into area: wide rather than tall, stacked from top to bottom, in several
/// columns from four windows on, every pixel covered.
QList<QRect> tiledHorizontally(const QRect &area, int count);

/// Lays the area's windows over one another, each title bar in view, none extending past the area.
void cascadeWindows(QMdiArea &area);

/// Tiles the area's windows that are not minimised.
void tileWindows(QMdiArea &area);
