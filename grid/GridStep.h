#pragma once

#include "grid/cells/GridBlock.h"
#include "runtime/CellRow.h"

#include <optional>
#include <variant>
#include <vector>

class SpreadModel;
class SpreadView;
struct TextChange;

/// One step of undo: what one act of the user changed in a spread grid. Each change keeps what is not in the grid at
/// the moment and swaps it with what is: after the act the former contents, after undo() the new ones.
class GridStep
{
public:
    // Call them in the order of the changes: after a change of texts, before a change of anything else.
    void recordTexts(const TextChange &change);
    void recordColours(const SpreadModel &model, const GridBlock &cells);
    /// Keeps the texts, colours and heights of rows that are dropped.
    void recordRowCount(const SpreadModel &model, const SpreadView &view, int newCount);

    /// Whether the grid is the same as before the step.
    bool isEmpty(const SpreadModel &model) const;
    bool changesRowCount() const;
    /// The smallest block that holds all cells whose text or colour was changed; std::nullopt if only rows were added
    /// or dropped.
    std::optional<GridBlock> changedCells(const SpreadModel &model) const;
    /// The bytes that the step takes, including the texts that are no longer in the grid. Call it before undo().
    qsizetype size(const SpreadModel &model) const;

    void undo(SpreadModel &model, SpreadView &view);
    void redo(SpreadModel &model, SpreadView &view);

private:
    struct Rows
    {
        int firstRow;
        std::vector<CellRow> texts;
    };
    struct Colours
    {
        GridBlock cells;
        std::vector<quint8> kept;
    };
    struct RowHeights
    {
        int firstRow;
        std::vector<int> pixels;
    };
    struct RowCount
    {
        int rows;
    };
    using Change = std::variant<Rows, Colours, RowHeights, RowCount>;
    struct Exchange;

    int formerRowCount(const SpreadModel &model) const;
    qsizetype memoryOutsideGrid(const SpreadModel &model) const;

    std::vector<Change> m_changes;
};
