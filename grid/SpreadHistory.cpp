#include "grid/SpreadHistory.h"

#include "grid/RedrawOff.h"
#include "grid/SpreadSelection.h"
#include "grid/SpreadView.h"
#include "grid/cells/SpreadModel.h"

#include <QScopedValueRollback>

#include <utility>

SpreadHistory::SpreadHistory(SpreadView &view, SpreadModel &model, SpreadSelection &selection)
    : QObject(&view), m_view(view), m_model(model), m_selection(selection)
{
    connect(&view, &SpreadView::rowCountAboutToChange, this, &SpreadHistory::recordRowCount);
}

void SpreadHistory::start()
{
    m_started = true;
}

void SpreadHistory::setMaxBytes(qsizetype bytes)
{
    m_maxBytes = bytes;
    dropOldest();
}

// Recording

void SpreadHistory::beginStep()
{
    if (m_depth++ == 0 && m_started) {
        m_open = {.changes = {}, .selectedBefore = m_selection.block(), .selectedAfter = {}};
    }
}

void SpreadHistory::endStep()
{
    if (--m_depth > 0 || !m_started || m_open.changes.isEmpty(m_model)) {
        return;
    }
    finish(m_open);
    push(std::exchange(m_open, {}));
}

bool SpreadHistory::isInStep() const
{
    return m_started && !m_restoring && m_depth > 0;
}

// Changes outside a step make the earlier steps useless: they no longer fit the texts.
void SpreadHistory::forgetOutsideSteps()
{
    if (m_started && !m_restoring && m_depth == 0) {
        forgetAll();
    }
}

void SpreadHistory::recordTexts(const TextChange &change)
{
    forgetOutsideSteps();
    if (isInStep()) {
        m_open.changes.recordTexts(change);
    }
}

void SpreadHistory::recordColours(const GridBlock &block)
{
    const auto cells = m_model.dataCells(block);
    if (isInStep() && cells) {
        m_open.changes.recordColours(m_model, *cells);
    }
}

void SpreadHistory::recordRowCount(int newCount)
{
    forgetOutsideSteps();
    if (isInStep()) {
        m_open.changes.recordRowCount(m_model, m_view, newCount);
    }
}

// If rows were added or dropped, the user's own selection shows best what was done.
void SpreadHistory::finish(Step &step) const
{
    step.selectedAfter = m_selection.block();
    if (!step.changes.changesRowCount() && !step.keepsSelection) {
        GridBlock cells = step.changes.changedCells(m_model).value_or(step.selectedAfter);
        if (cells.column1 == 1 && cells.column2 == m_model.columnCount()) {
            cells.column1 = -1;
        }
        step.selectedBefore = step.selectedAfter = cells;
    }
    step.size = step.changes.size(m_model);
}

void SpreadHistory::push(Step &&step)
{
    dropUndone();
    m_size += step.size;
    m_steps.push_back(std::move(step));
    ++m_done;
    dropOldest();
}

void SpreadHistory::dropUndone()
{
    if (m_clean > m_done) {
        m_clean.reset();
    }
    while (m_steps.size() > m_done) {
        m_size -= m_steps.back().size;
        m_steps.pop_back();
    }
}

void SpreadHistory::dropOldest()
{
    while (m_size > m_maxBytes && m_done > 1) {
        m_size -= m_steps.front().size;
        m_steps.pop_front();
        --m_done;
        if (m_clean) {
            m_clean = *m_clean > 0 ? std::optional(*m_clean - 1) : std::nullopt;
        }
    }
}

void SpreadHistory::forgetAll()
{
    m_steps.clear();
    m_size = 0;
    m_done = 0;
    m_clean.reset();
}

// Undo and redo

bool SpreadHistory::undo()
{
    if (m_done == 0 || m_depth > 0) {
        return false;
    }
    Step &step = m_steps[--m_done];
    restore(&GridStep::undo, step, step.selectedBefore);
    return true;
}

bool SpreadHistory::redo()
{
    if (m_done == m_steps.size() || m_depth > 0) {
        return false;
    }
    Step &step = m_steps[m_done++];
    restore(&GridStep::redo, step, step.selectedAfter);
    return true;
}

void SpreadHistory::restore(void (GridStep::*way)(SpreadModel &, SpreadView &), Step &step, GridBlock selected)
{
    {
        const QScopedValueRollback restoring(m_restoring, true);
        const RedrawOff off(m_view);
        (step.changes.*way)(m_model, m_view);
    }
    m_selection.select(shownPart(selected));
    m_view.scrollToCell(m_selection.activeColumn(), m_selection.activeRow());
}

// The active cell must not be in a hidden column.
GridBlock SpreadHistory::shownPart(GridBlock block) const
{
    if (!block.isWholeRows()) {
        const int shown = m_view.shownColumnFrom(block.column1 - 1, 1);
        if (shown >= block.column1 && shown <= block.column2) {
            block.column1 = shown;
        } else {
            block.column1 = block.column2 = m_selection.activeColumn();
        }
    }
    return block;
}
