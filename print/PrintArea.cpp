#include "print/PrintArea.h"

#include "grid/SpreadGrid.h"

#include <algorithm>

namespace {

QList<int> shownColumns(const SpreadGrid &grid, PrintSpan among)
{
    QList<int> columns;
    for (int column = std::max(among.first, 1); column <= std::min(among.last, grid.columnCount()); ++column) {
        if (grid.isColumnShown(column)) {
            columns.append(column);
        }
    }
    return columns;
}

PrintArea allCells(const SpreadGrid &grid)
{
    return {{1, grid.rowCount()}, shownColumns(grid, {1, grid.columnCount()})};
}

PrintArea blockCells(const SpreadGrid &grid, const GridBlock &block)
{
    const PrintSpan columns{block.isWholeRows() ? 1 : block.column1, block.column2};
    return {{std::max(block.row1, 1), std::min(block.row2, grid.rowCount())}, shownColumns(grid, columns)};
}

/// The columns that are visible at the top of the view, from left to right, without those that a frozen column covers.
QList<int> columnsInView(const SpreadGrid &grid)
{
    QList<int> columns;
    for (int x = 0; x < grid.viewport()->width();) {
        const QModelIndex index = grid.indexAt({x, 0});
        if (!index.isValid()) {
            break;
        }
        const int column = index.column() + 1;
        if (!columns.endsWith(column)) { // the line beside a cell belongs to its column, too
            columns.append(column);
        }
        x = std::max(x, grid.visualRect(index).right()) + 1;
    }
    return columns;
}

PrintArea displayedCells(const SpreadGrid &grid)
{
    return {{std::max(grid.topRow(), 1), grid.bottomRow()}, columnsInView(grid)};
}

} // namespace

PrintArea printArea(const SpreadGrid &grid, const GridPrintOptions &options)
{
    switch (options.type) {
    case GridPrintType::Block:
        return blockCells(grid, options.block);
    case GridPrintType::DisplayedPage:
        return displayedCells(grid);
    default:
        return allCells(grid);
    }
}
