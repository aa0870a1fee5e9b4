#pragma once

#include "print/GridPrintOptions.h"

class PrintJob;
class QPagedPaintDevice;
class SpreadGrid;
class QWidget;

/// How a print-out ended.
enum class PrintOutcome { Done, Cancelled, Failed };

/// How many pages the grid takes under these options, those that a page range leaves out included; 0 when none of its
/// columns is to be printed.
int gridPageCount(const SpreadGrid &grid, const GridPrintOptions &options, QPagedPaintDevice &paper);

/// Prints the grid into the job, page after page, under a box with which the user can stop it; nothing is kept of a
/// page that is done. Column headings and row numbers stand on every page; rows that do not fit go on the next page,
/// columns that do not fit follow after the last row. Pages are numbered from 1 in that order; a page range keeps the
/// numbers. A range without pages, or a grid without shown columns, prints nothing and is Done.
/// Cancelled and Failed leave the job to the caller.
PrintOutcome printGrid(const SpreadGrid &grid, const GridPrintOptions &options, PrintJob &job, QWidget *owner);
