#pragma once

#include <QPoint>
#include <QSize>

#include <optional>

/// The next cell that fits, in reading order (step 1) or against it (step -1), around the end of a grid of that many
/// columns and rows; the cell from comes last. Nothing when no cell fits. Rows in which mayFit(row) is false are passed
/// over; fits(column, row) decides. Columns and rows count from 1.
template <typename MayFit, typename Fits>
std::optional<QPoint> nextCell(QSize grid, QPoint from, int step, MayFit mayFit, Fits fits)
{
    const int rows = grid.height();
    const auto fittingColumn = [&](int row, int column) {
        do {
            column += step;
        } while (column >= 1 && column <= grid.width() && !fits(column, row));
        return column >= 1 && column <= grid.width() ? column : 0;
    };
    // The row that the walk begins in is looked at twice: behind the cell at first, and as a whole at the end.
    for (int passed = 0; rows > 0 && passed <= rows; ++passed) {
        const int row = ((from.y() - 1 + step * passed) % rows + rows) % rows + 1;
        const int before = passed == 0 ? from.x() : step > 0 ? 0 : grid.width() + 1;
        const int column = mayFit(row) ? fittingColumn(row, before) : 0;
        if (column > 0) {
            return QPoint(column, row);
        }
    }
    return std::nullopt;
}
