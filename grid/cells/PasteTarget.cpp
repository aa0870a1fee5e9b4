#include "grid/cells/PasteTarget.h"

#include <algorithm>

ClipboardRecord copiedShape(const GridBlock &selection)
{
    const auto height = qint16(selection.row2 - selection.row1);
    if (selection.isWholeRows()) {
        return {.kind = ClipboardRecord::WholeRows, .width = 0, .height = height};
    }
    if (selection.isSingleCell()) {
        return {.kind = ClipboardRecord::OneCell, .width = 0, .height = 0};
    }
    return {.kind = ClipboardRecord::Block, .width = qint16(selection.column2 - selection.column1), .height = height};
}

std::optional<GridBlock> blockPasteTarget(
    const ClipboardRecord &record, const GridBlock &selection, int columns, int rows)
{
    GridBlock target{
        selection.column1, selection.row1, selection.column1 + record.width, selection.row1 + record.height};
    if (selection.isSingleCell()) {
        target.column2 = std::min(target.column2, columns);
        target.row2 = std::min(target.row2, rows);
        return target;
    }
    return target == selection ? std::optional(target) : std::nullopt;
}

GridBlock rowsPasteTarget(const ClipboardRecord &record, const GridBlock &selection, int columns, int rows)
{
    return {0, selection.row1, columns, std::min(selection.row1 + record.height, rows)};
}
