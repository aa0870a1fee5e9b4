#pragma once

#include "grid/cells/CellMarks.h"

class QColor;
class QPainter;
class QRect;

/// The mark in a cell's upper right corner: a triangle for an error, a dot for a warning. Its size goes by the
/// painter's font, its colours by the background. The corner is where the fewest texts reach.
void paintMarkCorner(QPainter &painter, const QRect &cell, CellMark mark, const QColor &background);
