#pragma once

#include "grid/cells/GridBlock.h"

#include <QtGlobal>

#include <optional>

/// The shape of a copied text: what was selected when it was copied.
struct ClipboardRecord
{
    enum Kind : qint16 { Nothing = 0, OneCell = 1, Block = 2, WholeRows = 3 };

    qint16 kind = Nothing;
    qint16 width = 0; ///< Block: last column minus first
    qint16 height = 0; ///< Block, WholeRows: last row minus first

    bool operator==(const ClipboardRecord &) const = default;
};

/// The record of a selection that is copied.
ClipboardRecord copiedShape(const GridBlock &selection);

/// Where a copied block of cells is pasted: from the selection's top left cell, cut at the grid's last column and row
/// if one cell is selected. std::nullopt if a block of another size is selected.
std::optional<GridBlock> blockPasteTarget(
    const ClipboardRecord &record, const GridBlock &selection, int columns, int rows);

/// Where copied rows are pasted: whole rows from the selection's first row, cut at the grid's last row.
GridBlock rowsPasteTarget(const ClipboardRecord &record, const GridBlock &selection, int columns, int rows);
