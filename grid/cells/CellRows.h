#pragma once

#include "runtime/CellRow.h"

#include <QString>

#include <functional>
#include <span>
#include <vector>

/// Operations on rows of texts; none of them changes the rows that it is given. Columns count from 0; both ends of a
/// range are included.
namespace CellRows {

/// The row with these texts from firstColumn on; texts beyond the last column are dropped.
CellRow replaced(const CellRow &row, int columns, int firstColumn, std::span<const QStringView> texts);

/// Writes the cells of column1 to column2 to out, joined by tabs; returns the position after them.
QChar *writeCells(QChar *out, const CellRow &row, int column1, int column2);

/// The rows after a block text was put into their columns column1 to column2, leaving out the first skippedCells cells
/// of each of its rows. Surplus cells and rows are dropped; a row that the text does not reach stays the same. If the
/// block is a single column, a line end at the end of the text means an empty last cell, if there is a row for it: that
/// is the block text of a column whose last cell is empty.
std::vector<CellRow> withBlockText(
    std::span<const CellRow> rows, int columns, int column1, int column2, int skippedCells, QStringView block);

/// The rows after each cell of column1 to column2 got the text that textOf returns for (column, index of the row). A
/// row whose texts stay the same is not rebuilt.
std::vector<CellRow> withTexts(std::span<const CellRow> rows, int columns, int column1, int column2,
    const std::function<QStringView(int, int)> &textOf);

/// The indexes of the rows in ascending order of the numbers in column key; rows without a number there come last. Rows
/// that compare equal keep their order.
std::vector<size_t> orderByNumber(std::span<const CellRow> rows, int key);

} // namespace CellRows
