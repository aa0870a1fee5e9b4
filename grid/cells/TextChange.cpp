#include "grid/cells/TextChange.h"

#include <algorithm>

namespace {

void enlarge(std::optional<GridBlock> &block, int column, int row)
{
    if (!block) {
        block = GridBlock{column, row, column, row};
    }
    block->column1 = std::min(block->column1, column);
    block->column2 = std::max(block->column2, column);
    block->row2 = row; // rows come in ascending order
}

} // namespace

std::optional<GridBlock> changedBlock(
    int firstRow, std::span<const CellRow> before, std::span<const CellRow> after, int columns)
{
    std::optional<GridBlock> block;
    const size_t rows = std::min(before.size(), after.size());
    for (size_t at = 0; at < rows; ++at) {
        if (before[at].sharesMemoryWith(after[at])) {
            continue;
        }
        for (int column = 1; column <= columns; ++column) {
            if (before[at].text(column - 1) != after[at].text(column - 1)) {
                enlarge(block, column, firstRow + int(at));
            }
        }
    }
    return block;
}
