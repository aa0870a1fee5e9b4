#include "grid/GridStep.h"

#include "grid/SpreadView.h"
#include "grid/cells/SpreadModel.h"
#include "grid/cells/TextChange.h"

#include <QHash>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <numeric>

namespace {

bool areSameColours(std::span<const quint8> one, std::span<const quint8> other)
{
    if (one.empty() || other.empty()) { // no cell had a colour then
        const auto isNone = [](quint8 index) { return index == 0; };
        return std::ranges::all_of(one, isNone) && std::ranges::all_of(other, isNone);
    }
    return std::ranges::equal(one, other);
}

void enlarge(std::optional<GridBlock> &block, const GridBlock &more)
{
    block = !block ? more
                   : GridBlock{std::min(block->column1, more.column1), std::min(block->row1, more.row1),
                       std::max(block->column2, more.column2), std::max(block->row2, more.row2)};
}

} // namespace

/// Swaps what a change keeps with what is in the grid.
struct GridStep::Exchange
{
    SpreadModel &model;
    SpreadView &view;

    void operator()(Rows &rows) const { model.exchangeRows(rows.firstRow, rows.texts); }
    void operator()(Colours &colours) const { model.exchangeColours(colours.cells, colours.kept); }
    void operator()(RowHeights &heights) const
    {
        for (int row = heights.firstRow; int &pixels : heights.pixels) {
            const int former = view.unzoomedRowHeight(row);
            view.setUnzoomedRowHeight(row, pixels);
            pixels = former;
            ++row;
        }
    }
    void operator()(RowCount &count) const
    {
        const int former = model.rowCount();
        view.setRowCount(count.rows);
        count.rows = former;
    }
};

void GridStep::recordTexts(const TextChange &change)
{
    const auto differ = [&](size_t at) { return change.before[at] != change.after[at]; };
    size_t first = 0;
    size_t end = std::min(change.before.size(), change.after.size());
    while (first < end && !differ(first)) {
        ++first;
    }
    while (first < end && !differ(end - 1)) {
        --end;
    }
    if (first < end) {
        const auto rows = change.before.subspan(first, end - first);
        m_changes.push_back(Rows{change.firstRow + int(first),
            {std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end())}});
    }
}

void GridStep::recordColours(const SpreadModel &model, const GridBlock &cells)
{
    m_changes.push_back(Colours{cells, model.keptColours(cells)});
}

void GridStep::recordRowCount(const SpreadModel &model, const SpreadView &view, int newCount)
{
    const int first = newCount + 1;
    const int last = model.rowCount();
    if (first <= last) {
        RowHeights heights{first, {}};
        for (int row = first; row <= last; ++row) {
            heights.pixels.push_back(view.unzoomedRowHeight(row));
        }
        m_changes.push_back(std::move(heights));
        recordColours(model, {1, first, model.columnCount(), last});
        const auto rows = model.rows(first, last);
        m_changes.push_back(Rows{first, {rows.begin(), rows.end()}});
    }
    if (newCount != last) {
        m_changes.push_back(RowCount{last});
    }
}

bool GridStep::isEmpty(const SpreadModel &model) const
{
    return std::ranges::all_of(m_changes, [&model](const Change &change) {
        const auto *colours = std::get_if<Colours>(&change);
        return colours && areSameColours(colours->kept, model.keptColours(colours->cells));
    });
}

bool GridStep::changesRowCount() const
{
    return std::ranges::any_of(
        m_changes, [](const Change &change) { return std::holds_alternative<RowCount>(change); });
}

std::optional<GridBlock> GridStep::changedCells(const SpreadModel &model) const
{
    std::optional<GridBlock> block;
    for (const Change &change : m_changes) {
        if (const auto *colours = std::get_if<Colours>(&change)) {
            enlarge(block, colours->cells);
        } else if (const auto *rows = std::get_if<Rows>(&change)) {
            const auto now = model.rows(rows->firstRow, rows->firstRow + int(rows->texts.size()) - 1);
            if (const auto cells = changedBlock(rows->firstRow, rows->texts, now, model.columnCount())) {
                enlarge(block, *cells);
            }
        }
    }
    return block;
}

int GridStep::formerRowCount(const SpreadModel &model) const
{
    for (const Change &change : m_changes) {
        if (const auto *count = std::get_if<RowCount>(&change)) {
            return count->rows;
        }
    }
    return model.rowCount();
}

// Most commands move rows by as many places as they add or drop, and what a command puts in and replaces again is the
// step's alone; only other rows have to be searched for.
qsizetype GridStep::memoryOutsideGrid(const SpreadModel &model) const
{
    const auto grid = model.rows(1, model.rowCount());
    const int moved = model.rowCount() - formerRowCount(model);
    qsizetype own = 0;
    QHash<const void *, qsizetype> memory;
    for (const Change &change : m_changes) {
        if (const auto *rows = std::get_if<Rows>(&change)) {
            int position = rows->firstRow + moved;
            for (const CellRow &row : rows->texts) {
                const bool isThere = position >= 1 && size_t(position) <= grid.size();
                const bool onlyMoved = isThere && grid[size_t(position - 1)].sharesMemoryWith(row);
                if (!onlyMoved && row.isShared()) {
                    memory.insert(row.memory(), row.memorySize());
                } else if (!onlyMoved) {
                    own += row.memorySize();
                }
                ++position;
            }
        }
    }
    for (auto row = grid.begin(); row != grid.end() && !memory.isEmpty(); ++row) {
        memory.remove(row->memory());
    }
    return std::accumulate(memory.begin(), memory.end(), own);
}

// Rows that were only moved are still in the grid: their texts cost nothing.
qsizetype GridStep::size(const SpreadModel &model) const
{
    std::size_t bytes = sizeof(GridStep) + m_changes.capacity() * sizeof(Change);
    for (const Change &change : m_changes) {
        if (const auto *rows = std::get_if<Rows>(&change)) {
            bytes += rows->texts.capacity() * sizeof(CellRow);
        } else if (const auto *colours = std::get_if<Colours>(&change)) {
            bytes += colours->kept.capacity();
        } else if (const auto *heights = std::get_if<RowHeights>(&change)) {
            bytes += heights->pixels.capacity() * sizeof(int);
        }
    }
    return qsizetype(bytes) + memoryOutsideGrid(model);
}

void GridStep::undo(SpreadModel &model, SpreadView &view)
{
    std::for_each(m_changes.rbegin(), m_changes.rend(), [&](Change &change) {
        std::visit(Exchange{model, view}, change);
    });
}

void GridStep::redo(SpreadModel &model, SpreadView &view)
{
    for (Change &change : m_changes) {
        std::visit(Exchange{model, view}, change);
    }
}
