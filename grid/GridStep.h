#pragma once

#include "grid/cells/CellRow.h"
#include "grid/cells/GridBlock.h"

#include <QHash>

#include <optional>
#include <variant>
#include <vector>

class SpreadModel;
class SpreadView;
struct TextChange;

/// One act of the user on a spread grid, as a list of changes that can be taken back and made again. Each change keeps
/// what is not in the grid at present: what was there before it, or, once it was taken back, what it had brought.
class GridStep
{
public:
    // To be called in the order of the changes: after a change of texts, before the others.
    void noteTexts(const TextChange &change);
    void noteColours(const SpreadModel &model, const GridBlock &cells);
    /// Also keeps all that goes with rows that are dropped.
    void noteRowCount(const SpreadModel &model, const SpreadView &view, int newCount);

    /// Whether the grid is as it was before.
    bool isEmpty(const SpreadModel &model) const;
    bool changesRowCount() const;
    /// The smallest block that holds all cells whose text or colour was changed. Nothing where only rows came and went.
    std::optional<GridBlock> changedCells(const SpreadModel &model) const;
    /// The bytes that the step needs, the texts that left the grid included. To be called before it is taken back.
    qsizetype size(const SpreadModel &model) const;

    void takeBack(SpreadModel &model, SpreadView &view);
    void makeAgain(SpreadModel &model, SpreadView &view);

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
    QHash<const void *, qsizetype> memoryOutsideGrid(const SpreadModel &model) const;

    std::vector<Change> m_changes;
};
