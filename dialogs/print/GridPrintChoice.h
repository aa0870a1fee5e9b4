#pragma once

#include "dialogs/print/PrintSettings.h"
#include "print/GridPrintOptions.h"

class SpreadGrid;

/// How the grid of the document title (the editor window's caption) is printed under these settings; the block is the
/// one selected now.
GridPrintOptions gridPrintOptions(const SpreadGrid &grid, const PrintSettings &settings, const QString &title);
