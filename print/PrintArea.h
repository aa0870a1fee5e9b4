#pragma once

#include "print/GridPrintOptions.h"
#include "print/PrintPages.h"

class SpreadGrid;

/// The cells of a grid that are printed: rows from 1, and columns (from 1) that are not hidden.
struct PrintArea
{
    PrintSpan rows;
    QList<int> columns;

    bool operator==(const PrintArea &) const = default;
};

/// All cells (a page range counts the pages of all cells), those of the block, or the rows and columns that are at
/// least partly in view. What lies outside the grid is left out.
PrintArea printArea(const SpreadGrid &grid, const GridPrintOptions &options);
