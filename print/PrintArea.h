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

/// The cells that the options name: all (a page range is one of the pages of all cells), those of the block, or those
/// that are at least partly in view. What is outside the grid is left out.
PrintArea printArea(const SpreadGrid &grid, const GridPrintOptions &options);
