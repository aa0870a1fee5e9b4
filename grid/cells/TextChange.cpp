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

std::optional<GridBlock> changedBlock(const TextChange &change, int columns)
{
    std::optional<GridBlock> block;
    const size_t rows = std::min(change.before.size(), change.after.size());
    for (size_t at = 0; at < rows; ++at) {
        if (change.before[at].sharesMemoryWith(change.after[at])) {
            continue;
        }
        for (int column = 1; column <= columns; ++column) {
            if (change.before[at].text(column - 1) != change.after[at].text(column - 1)) {
                enlarge(block, column, change.firstRow + int(at));
            }
        }
    }
    return block;
}
