#pragma once

#include "document/ParameterColumn.h"
#include "runtime/CellRow.h"

#include <QColor>

#include <span>

class SpreadGrid;

/// Dark red: the text colour of cells that were changed since the window was opened.
inline constexpr QRgb changedCellColour = 0xff800000;

/// Lays the grid out for a document of that many rows: columns, headers, cell types, widths and hidden columns.
void layOutParameterGrid(SpreadGrid &grid, int rows);

/// Hides the columns that ListVisualState hides and shows the others.
void applyVisibleColumns(SpreadGrid &grid);

/// Copies PrRecords into the grid, over as many rows as the grid has.
void fillParameterGrid(SpreadGrid &grid);

/// The same with rows as they are shown; rows is given the former ones.
void fillParameterGrid(SpreadGrid &grid, std::span<CellRow> rows);

/// Puts an added parameter's first texts into row, as Add line gives them; the read condition's column is left alone.
void resetParameterRow(SpreadGrid &grid, int row);
