#pragma once

#include "print/GridPrintOptions.h"

class PrintJob;
class QPagedPaintDevice;
class SpreadGrid;
class QWidget;

/// How printing ended.
enum class PrintOutcome { Done, Cancelled, Failed };

/// How many pages the grid takes with these options, including those that a page range leaves out; 0 if none of its
/// columns is to be printed.
int gridPageCount(const SpreadGrid &grid, const GridPrintOptions &options, QPagedPaintDevice &paper);

/// Prints the grid into the job, page after page, while a box lets the user stop it. Column headings and row numbers
/// are on every page. Rows that do not fit continue on the next page; columns that do not fit follow after the last
/// row. Pages are numbered from 1 in that order, and a page range does not change the numbers. A range without pages,
/// or a grid without shown columns, prints nothing and is Done. After Cancelled or Failed the caller ends the job.
PrintOutcome printGrid(const SpreadGrid &grid, const GridPrintOptions &options, PrintJob &job, QWidget *owner);
