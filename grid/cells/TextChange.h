#pragma once

#include "grid/cells/GridBlock.h"
#include "runtime/CellRow.h"

#include <optional>
#include <span>

/// One change of a grid's texts: the rows from firstRow on had the texts `before` and now have `after`. New rows have
/// no `before`, dropped rows no `after`. Rows count from 1. Who is told of it may take the rows `before` for himself:
/// nobody else needs them.
struct TextChange
{
    enum class Origin { Program, User };

    Origin origin = Origin::Program;
    int firstRow = 1;
    std::span<CellRow> before;
    std::span<const CellRow> after;
};

/// The smallest block that holds all cells whose texts differ; as many rows from firstRow on as there are both before
/// and after.
std::optional<GridBlock> changedBlock(
    int firstRow, std::span<const CellRow> before, std::span<const CellRow> after, int columns);
