#pragma once

#include "grid/cells/CellRow.h"
#include "grid/cells/GridBlock.h"

#include <optional>
#include <span>

/// One change of a grid's texts: the rows from firstRow on had the texts `before` and now have `after`. New rows have
/// no `before`, dropped rows no `after`. Rows count from 1.
struct TextChange
{
    enum class Origin { Program, User };

    Origin origin = Origin::Program;
    int firstRow = 1;
    std::span<const CellRow> before;
    std::span<const CellRow> after;
};

/// The smallest block that holds all cells whose texts differ, in rows that are neither new nor dropped.
std::optional<GridBlock> changedBlock(const TextChange &change, int columns);
