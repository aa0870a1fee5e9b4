#pragma once

/// A rectangle of cells, both ends included. Columns and rows count from 1; row 0 is the header row, column 0 the row
/// numbers. In a selection, column1 -1 means whole rows (column2 is the last column then).
struct GridBlock
{
    int column1 = 1;
    int row1 = 1;
    int column2 = 1;
    int row2 = 1;

    bool isSingleCell() const { return column1 == column2 && row1 == row2; }
    bool isWholeRows() const { return column1 == -1; }

    bool operator==(const GridBlock &) const = default;
};
