#pragma once

#include <QPoint>
#include <QSize>

#include <optional>

/// The next cell for which fits(column, row) is true, in reading order (step 1) or against it (step -1), wrapping
/// around at the end of a grid of that many columns and rows; the cell from itself comes last. std::nullopt if there is
/// none. Rows for which mayFit(row) is false are skipped. Columns and rows count from 1.
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
    // The first row is visited twice: first after the cell, and as a whole at the end.
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
