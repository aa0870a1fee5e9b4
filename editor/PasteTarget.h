#pragma once

#include "editor/ClipboardRecord.h"
#include "grid/cells/GridBlock.h"

#include <optional>

/// What Copy remembers of a selection.
ClipboardRecord copiedShape(const GridBlock &selection);

/// Where a copied block of cells lands: from the selection's top left cell, cut at the grid's last column and row when
/// one cell is selected. Nothing when a block of another size is selected.
std::optional<GridBlock> blockPasteTarget(
    const ClipboardRecord &record, const GridBlock &selection, int columns, int rows);

/// Where copied rows land: whole rows from the selection's first row, cut at the grid's last row.
GridBlock rowsPasteTarget(const ClipboardRecord &record, const GridBlock &selection, int columns, int rows);
