#include "grid/MoveKeys.h"

#include "grid/SpreadSelection.h"
#include "grid/SpreadView.h"
#include "grid/cells/SpreadModel.h"

#include <QKeyEvent>

#include <algorithm>

// With Shift, a move that extends moves the far corner of the selection instead of the active cell.
const MoveKeys::MoveKey MoveKeys::moveKeys[] = {
    {Qt::Key_Left, Qt::NoModifier, Move::Left, true},
    {Qt::Key_Right, Qt::NoModifier, Move::Right, true},
    {Qt::Key_Up, Qt::NoModifier, Move::Up, true},
    {Qt::Key_Down, Qt::NoModifier, Move::Down, true},
    {Qt::Key_Home, Qt::NoModifier, Move::RowStart, true},
    {Qt::Key_End, Qt::NoModifier, Move::RowEnd, true},
    {Qt::Key_Home, Qt::ControlModifier, Move::GridStart, true},
    {Qt::Key_End, Qt::ControlModifier, Move::GridEnd, true},
    {Qt::Key_Left, Qt::ControlModifier, Move::EdgeLeft, true},
    {Qt::Key_Right, Qt::ControlModifier, Move::EdgeRight, true},
    {Qt::Key_Up, Qt::ControlModifier, Move::EdgeUp, true},
    {Qt::Key_Down, Qt::ControlModifier, Move::EdgeDown, true},
    {Qt::Key_PageUp, Qt::NoModifier, Move::PageUp, true},
    {Qt::Key_PageDown, Qt::NoModifier, Move::PageDown, true},
    {Qt::Key_Tab, Qt::NoModifier, Move::Next, false},
    {Qt::Key_Tab, Qt::ShiftModifier, Move::Previous, false},
    {Qt::Key_Backtab, Qt::NoModifier, Move::Previous, false},
    {Qt::Key_Backtab, Qt::ShiftModifier, Move::Previous, false},
    {Qt::Key_Return, Qt::NoModifier, Move::NextRow, false},
    {Qt::Key_Enter, Qt::NoModifier, Move::NextRow, false},
    {Qt::Key_Return, Qt::ShiftModifier, Move::PreviousRow, false},
    {Qt::Key_Enter, Qt::ShiftModifier, Move::PreviousRow, false},
};

MoveKeys::MoveKeys(SpreadView &view, const SpreadModel &model, SpreadSelection &selection)
    : m_view(view), m_model(model), m_selection(selection)
{
}

bool MoveKeys::handle(const QKeyEvent &event)
{
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const auto *found = std::ranges::find_if(moveKeys, [&](const MoveKey &entry) {
        return entry.key == event.key()
            && (entry.modifiers == modifiers || (entry.extends && (entry.modifiers | Qt::ShiftModifier) == modifiers));
    });
    if (found == std::end(moveKeys) || m_selection.activeRow() == 0) {
        return false;
    }
    const bool extends = found->modifiers != modifiers;
    const QPoint from = extends ? m_selection.farCorner() : QPoint(m_selection.activeColumn(), m_selection.activeRow());
    const auto cell = target(found->move, from);
    if (!cell) {
        return false;
    }
    if (extends) {
        m_selection.extendTo(cell->x(), cell->y());
    } else {
        m_selection.moveTo(cell->x(), cell->y());
    }
    m_view.scrollToCell(cell->x(), cell->y());
    return true;
}

std::optional<QPoint> MoveKeys::target(Move move, QPoint from) const
{
    const QPoint first{m_view.shownColumnFrom(0, 1), 1};
    const QPoint last{m_view.shownColumnFrom(m_model.columnCount() + 1, -1), m_model.rowCount()};
    switch (move) {
    case Move::Left:
        return stepped(from, {-1, 0});
    case Move::Right:
        return stepped(from, {1, 0});
    case Move::Up:
    case Move::PreviousRow:
        return stepped(from, {0, -1});
    case Move::Down:
    case Move::NextRow:
        return stepped(from, {0, 1});
    case Move::RowStart:
        return QPoint(first.x(), from.y());
    case Move::RowEnd:
        return QPoint(last.x(), from.y());
    case Move::GridStart:
        return first;
    case Move::GridEnd:
        return last;
    case Move::EdgeLeft:
        return edgeTarget(from, {-1, 0});
    case Move::EdgeRight:
        return edgeTarget(from, {1, 0});
    case Move::EdgeUp:
        return edgeTarget(from, {0, -1});
    case Move::EdgeDown:
        return edgeTarget(from, {0, 1});
    case Move::PageUp:
        return pageTarget(from, -1);
    case Move::PageDown:
        return pageTarget(from, 1);
    case Move::Next:
        return tabTarget(from, 1);
    case Move::Previous:
        return tabTarget(from, -1);
    }
    return std::nullopt;
}

// The neighbour cell, skipping hidden columns; the cell itself at the grid's edge.
QPoint MoveKeys::stepped(QPoint cell, QPoint step) const
{
    return {step.x() == 0 ? cell.x() : m_view.shownColumnFrom(cell.x(), step.x()),
        std::clamp(cell.y() + step.y(), 1, m_model.rowCount())};
}

// The view scrolls by the same number of rows, so that the cell keeps its position in it.
QPoint MoveKeys::pageTarget(QPoint from, int direction) const
{
    const int page = std::max(1, m_view.bottomRow() - m_view.topRow());
    m_view.setTopRow(m_view.topRow() + direction * page);
    return {from.x(), std::clamp(from.y() + direction * page, 1, m_model.rowCount())};
}

// From the last cell Tab leaves the grid, as it leaves any control.
std::optional<QPoint> MoveKeys::tabTarget(QPoint from, int step) const
{
    const QPoint neighbour = stepped(from, {step, 0});
    if (neighbour != from) {
        return neighbour;
    }
    const int row = from.y() + step;
    if (row < 1 || row > m_model.rowCount()) {
        return std::nullopt;
    }
    return QPoint(m_view.shownColumnFrom(step > 0 ? 0 : m_model.columnCount() + 1, step), row);
}

// The end of the run of filled cells, or the next filled cell, or the grid's edge.
QPoint MoveKeys::edgeTarget(QPoint from, QPoint step) const
{
    const auto isFilled = [this](QPoint cell) { return !m_model.text(cell.x(), cell.y()).isEmpty(); };
    QPoint next = stepped(from, step);
    const bool inRun = isFilled(from) && isFilled(next);
    while (next != from) {
        const QPoint beyond = stepped(next, step);
        if (beyond == next || (inRun ? !isFilled(beyond) : isFilled(next))) {
            break;
        }
        next = beyond;
    }
    return next;
}
