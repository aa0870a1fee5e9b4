#pragma once

#include "platform/CellType.h"

#include <QList>
#include <QString>

class SpreadGrid;

/// Spread grids as the dialogs use them: small ones, whose Tab key leads to the next control.
namespace DialogGrid {

struct Column
{
    QString heading;
    double width; ///< digits of the grid's font
    CellType type;
};

/// Lays out an empty grid with these columns in the user's font, never narrower than its columns.
void layOut(SpreadGrid &grid, const QList<Column> &columns);

/// Adds an empty row at the end and brings it into view.
void addRow(SpreadGrid &grid);

/// Removes the active row; the rows below it move up. Nothing happens without an active row.
void removeActiveRow(SpreadGrid &grid);

/// Makes the first cell the active one when there is none but could be.
void ensureActiveCell(SpreadGrid &grid);

} // namespace DialogGrid
