#pragma once

#include "grid/cells/CellRow.h"

#include <QString>

#include <functional>
#include <span>
#include <vector>

/// What can be done with rows of texts; no routine changes the rows that it is given. Columns count from 0, both ends
/// of a range are included.
namespace CellRows {

/// The row with texts from firstColumn on, as far as the row's columns reach.
CellRow replaced(const CellRow &row, int columns, int firstColumn, std::span<const QStringView> texts);

/// Writes the cells of column1 to column2, joined by tabs; returns the place behind them.
QChar *writeCells(QChar *out, const CellRow &row, int column1, int column2);

/// The rows after a block text was put into column1 to column2 of them, without its first skippedCells cells of every
/// row. Cells and rows beyond are dropped; a row that the text does not reach stands unchanged. Where the block is
/// a single column, a line end at the end stands for an empty last cell, if there is a row for it: such is the block
/// text of a column whose last cell is empty.
std::vector<CellRow> withBlockText(
    std::span<const CellRow> rows, int columns, int column1, int column2, int skippedCells, QStringView block);

/// The rows after the cells of column1 to column2 took the text that textOf gives for (column, index of the row), in
/// this order. A row whose texts stay the same is not built anew.
std::vector<CellRow> withTexts(std::span<const CellRow> rows, int columns, int column1, int column2,
    const std::function<QStringView(int, int)> &textOf);

/// The places of the rows in ascending order of the numbers in column key; rows without a number there come last. Rows
/// that compare equal keep their order.
std::vector<size_t> orderByNumber(std::span<const CellRow> rows, int key);

} // namespace CellRows
