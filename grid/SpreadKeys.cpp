#include "grid/SpreadKeys.h"

#include "grid/SpreadSelection.h"
#include "grid/SpreadView.h"
#include "grid/cells/CellInput.h"
#include "grid/cells/SpreadModel.h"

#include <QKeyEvent>

#include <algorithm>

// Shift with a move that extends moves the far corner of the selection instead of the active cell.
const SpreadKeys::MoveKey SpreadKeys::moveKeys[] = {
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

const SpreadKeys::CommandKey SpreadKeys::commandKeys[] = {
    {Qt::Key_F2, Qt::NoModifier, &SpreadKeys::editActive},
    {Qt::Key_Down, Qt::AltModifier, &SpreadKeys::editActive},
    {Qt::Key_Backspace, Qt::NoModifier, &SpreadKeys::editEmpty},
    {Qt::Key_Delete, Qt::NoModifier, &SpreadKeys::clear},
    {Qt::Key_Space, Qt::ControlModifier, &SpreadKeys::selectColumns},
    {Qt::Key_Space, Qt::ShiftModifier, &SpreadKeys::selectRows},
    {Qt::Key_A, Qt::ControlModifier, &SpreadKeys::selectAll},
    {Qt::Key_C, Qt::ControlModifier, &SpreadKeys::copy},
    {Qt::Key_Insert, Qt::ControlModifier, &SpreadKeys::copy},
    {Qt::Key_X, Qt::ControlModifier, &SpreadKeys::cut},
    {Qt::Key_Delete, Qt::ShiftModifier, &SpreadKeys::cut},
    {Qt::Key_V, Qt::ControlModifier, &SpreadKeys::paste},
    {Qt::Key_Insert, Qt::ShiftModifier, &SpreadKeys::paste},
    {Qt::Key_Z, Qt::ControlModifier, &SpreadKeys::undo},
    {Qt::Key_Y, Qt::ControlModifier, &SpreadKeys::redo},
    {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, &SpreadKeys::redo},
    {Qt::Key_D, Qt::ControlModifier, &SpreadKeys::fillDown},
    {Qt::Key_R, Qt::ControlModifier, &SpreadKeys::fillRight},
    {Qt::Key_Return, Qt::ControlModifier, &SpreadKeys::fillSelection},
    {Qt::Key_Enter, Qt::ControlModifier, &SpreadKeys::fillSelection},
    {Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier, &SpreadKeys::fillSeries},
    {Qt::Key_Plus, Qt::ControlModifier, &SpreadKeys::zoomIn},
    {Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier, &SpreadKeys::zoomIn},
    {Qt::Key_Minus, Qt::ControlModifier, &SpreadKeys::zoomOut},
    {Qt::Key_0, Qt::ControlModifier, &SpreadKeys::zoomBack},
};

SpreadKeys::SpreadKeys(SpreadView &grid, SpreadModel &model, SpreadSelection &selection)
    : m_grid(grid), m_model(model), m_selection(selection)
{
}

bool SpreadKeys::handle(QKeyEvent &event)
{
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return runMove(event.key(), modifiers) || runCommand(event.key(), modifiers) || beginTyping(event);
}

bool SpreadKeys::runMove(int key, Qt::KeyboardModifiers modifiers)
{
    const auto *found = std::ranges::find_if(moveKeys, [&](const MoveKey &entry) {
        return entry.key == key
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
    m_grid.scrollToCell(cell->x(), cell->y());
    return true;
}

bool SpreadKeys::runCommand(int key, Qt::KeyboardModifiers modifiers)
{
    const auto *found = std::ranges::find_if(
        commandKeys, [&](const CommandKey &entry) { return entry.key == key && entry.modifiers == modifiers; });
    if (found == std::end(commandKeys)) {
        return false;
    }
    (this->*found->run)();
    return true;
}

// A key that the cell cannot begin with does not open its editor.
bool SpreadKeys::beginTyping(QKeyEvent &event)
{
    const QString typed = event.text();
    // Both together are what a third shift level sends on some systems.
    const bool isCommand =
        event.modifiers().testFlag(Qt::ControlModifier) != event.modifiers().testFlag(Qt::AltModifier);
    const bool isText = !typed.isEmpty() && (typed.front().isPrint() || typed.front().isSurrogate());
    if (!isText || isCommand || m_selection.activeRow() == 0) {
        return false;
    }
    if (event.key() == Qt::Key_Space && m_grid.toggleSelectedCheckBoxes()) {
        return true;
    }
    const CellType &type = m_model.cellType(m_selection.activeColumn(), m_selection.activeRow());
    if (type.kind != CellType::Kind::CheckBox && CellInput::check(type, typed) != QValidator::Invalid) {
        m_grid.openEditor(event);
    }
    return true;
}

std::optional<QPoint> SpreadKeys::target(Move move, QPoint from) const
{
    const QPoint first{m_grid.shownColumnFrom(0, 1), 1};
    const QPoint last{m_grid.shownColumnFrom(m_model.columnCount() + 1, -1), m_model.rowCount()};
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

// The neighbour cell, over hidden columns; the cell itself at the grid's edge.
QPoint SpreadKeys::stepped(QPoint cell, QPoint step) const
{
    return {step.x() == 0 ? cell.x() : m_grid.shownColumnFrom(cell.x(), step.x()),
        std::clamp(cell.y() + step.y(), 1, m_model.rowCount())};
}

// The view goes on by the same number of rows, so that the cell keeps its place in it.
QPoint SpreadKeys::pageTarget(QPoint from, int direction) const
{
    const int page = std::max(1, m_grid.bottomRow() - m_grid.topRow());
    m_grid.setTopRow(m_grid.topRow() + direction * page);
    return {from.x(), std::clamp(from.y() + direction * page, 1, m_model.rowCount())};
}

// From the last cell Tab leaves the grid, as from every control.
std::optional<QPoint> SpreadKeys::tabTarget(QPoint from, int step) const
{
    const QPoint neighbour = stepped(from, {step, 0});
    if (neighbour != from) {
        return neighbour;
    }
    const int row = from.y() + step;
    if (row < 1 || row > m_model.rowCount()) {
        return std::nullopt;
    }
    return QPoint(m_grid.shownColumnFrom(step > 0 ? 0 : m_model.columnCount() + 1, step), row);
}

// The end of the run of filled cells, or the next filled cell, or the grid's edge.
QPoint SpreadKeys::edgeTarget(QPoint from, QPoint step) const
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

void SpreadKeys::editActive()
{
    m_grid.openEditor(SpreadView::EditStart::GoOn);
}

void SpreadKeys::editEmpty()
{
    m_grid.openEditor(SpreadView::EditStart::Empty);
}

void SpreadKeys::clear()
{
    m_grid.clearSelectedCells();
}

void SpreadKeys::selectColumns()
{
    const GridBlock block = m_selection.block();
    m_selection.selectColumns(std::max(block.column1, 1), block.column2, m_selection.activeRow());
}

void SpreadKeys::selectRows()
{
    const GridBlock block = m_selection.block();
    m_selection.selectRows(block.row1, block.row2, m_selection.activeColumn());
}

void SpreadKeys::selectAll()
{
    m_selection.selectAll();
}

void SpreadKeys::copy()
{
    emit m_grid.copyRequested();
}

void SpreadKeys::cut()
{
    emit m_grid.cutRequested();
}

void SpreadKeys::paste()
{
    emit m_grid.pasteRequested();
}

void SpreadKeys::undo()
{
    emit m_grid.undoRequested();
}

void SpreadKeys::redo()
{
    emit m_grid.redoRequested();
}

void SpreadKeys::fillDown()
{
    emit m_grid.fillRequested(SpreadView::Fill::Down);
}

void SpreadKeys::fillRight()
{
    emit m_grid.fillRequested(SpreadView::Fill::Right);
}

void SpreadKeys::fillSelection()
{
    emit m_grid.fillRequested(SpreadView::Fill::Selection);
}

void SpreadKeys::fillSeries()
{
    emit m_grid.fillRequested(SpreadView::Fill::Series);
}

void SpreadKeys::zoomIn()
{
    emit m_grid.zoomRequested(1);
}

void SpreadKeys::zoomOut()
{
    emit m_grid.zoomRequested(-1);
}

void SpreadKeys::zoomBack()
{
    emit m_grid.zoomRequested(0);
}
