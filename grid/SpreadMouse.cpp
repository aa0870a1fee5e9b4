#include "grid/SpreadMouse.h"

#include "grid/SpreadDelegate.h"
#include "grid/SpreadSelection.h"
#include "grid/SpreadView.h"
#include "grid/editors/CellEditor.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QTimerEvent>

#include <algorithm>

namespace {

constexpr int scrollInterval = 40; // milliseconds

// By how many cells the far corner moves while the mouse is beyond an edge: one, and one more for every 20 pixels.
int stepsBeyond(int position, int first, int last)
{
    const int beyond = position < first ? position - first : position > last ? position - last : 0;
    return beyond == 0 ? 0 : beyond / 20 + (beyond > 0 ? 1 : -1);
}

} // namespace

SpreadMouse::SpreadMouse(SpreadView &view, SpreadSelection &selection, SpreadDelegate &delegate)
    : QObject(&view), m_view(view), m_selection(selection), m_delegate(delegate)
{
    view.viewport()->installEventFilter(this);
}

bool SpreadMouse::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return drag(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return release(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonDblClick:
        return doubleClick(*static_cast<QMouseEvent *>(event));
    case QEvent::ContextMenu:
        return contextMenu(*static_cast<QContextMenuEvent *>(event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

// Ending an edit may sort the rows: the click means the cell that was below the mouse before that.
bool SpreadMouse::press(const QMouseEvent &event)
{
    const QPersistentModelIndex index = m_view.indexAt(event.position().toPoint());
    m_view.commitEdit();
    m_pressedCellMoved = index != m_view.indexAt(event.position().toPoint());
    if (event.button() == Qt::LeftButton && index.isValid()) {
        pressLeft(index, event);
    } else if (event.button() == Qt::RightButton) {
        m_menu = Menu::Pressed;
        if (index.isValid() && !m_selection.contains(index.column() + 1, index.row() + 1)) {
            m_selection.moveTo(index.column() + 1, index.row() + 1);
        }
    }
    return true;
}

void SpreadMouse::pressLeft(const QModelIndex &index, const QMouseEvent &event)
{
    const QPoint position = event.position().toPoint();
    const bool wasActive = index == m_view.currentIndex() && !m_selection.isBlock();
    if (event.modifiers() & Qt::ShiftModifier) {
        m_selection.extendTo(index.column() + 1, index.row() + 1);
    } else {
        m_selection.moveTo(index.column() + 1, index.row() + 1);
        m_pressedBox = isOnCheckBox(index, position) ? index : QModelIndex();
        if (wasActive && m_delegate.arrowRect(index, m_view.visualRect(index)).contains(position)) {
            m_view.openEditor(SpreadView::EditStart::GoOn);
            return;
        }
    }
    m_dragging = !m_pressedCellMoved;
    m_dragPosition = position;
}

bool SpreadMouse::drag(const QMouseEvent &event)
{
    if (!m_dragging || !(event.buttons() & Qt::LeftButton)) {
        return false;
    }
    m_dragPosition = event.position().toPoint();
    if (m_view.viewport()->rect().contains(m_dragPosition)) {
        m_scrollTimer.stop();
        extendTo(m_dragPosition);
    } else if (!m_scrollTimer.isActive()) {
        m_scrollTimer.start(scrollInterval, this);
    }
    return true;
}

void SpreadMouse::extendTo(const QPoint &position)
{
    const QModelIndex index = m_view.indexAt(position);
    if (index.isValid() && QPoint(index.column() + 1, index.row() + 1) != m_selection.farCorner()) {
        m_selection.extendTo(index.column() + 1, index.row() + 1);
        m_view.scrollToCell(index.column() + 1, index.row() + 1);
    }
}

// The selection grows as long as the mouse stays beyond an edge.
void SpreadMouse::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_scrollTimer.timerId()) {
        return;
    }
    const QRect inside = m_view.viewport()->rect();
    const QPoint nearest{std::clamp(m_dragPosition.x(), inside.left(), inside.right()),
        std::clamp(m_dragPosition.y(), inside.top(), inside.bottom())};
    const QModelIndex index = m_view.indexAt(nearest);
    const QPoint edge = index.isValid() ? QPoint(index.column() + 1, index.row() + 1) : m_selection.farCorner();
    const int column = m_view.shownColumnFrom(edge.x(), stepsBeyond(m_dragPosition.x(), inside.left(), inside.right()));
    const int row = edge.y() + stepsBeyond(m_dragPosition.y(), inside.top(), inside.bottom());
    m_selection.extendTo(column, row);
    m_view.scrollToCell(m_selection.farCorner().x(), m_selection.farCorner().y());
}

bool SpreadMouse::release(const QMouseEvent &event)
{
    const QPoint position = event.position().toPoint();
    if (event.button() == Qt::LeftButton) {
        m_dragging = false;
        m_scrollTimer.stop();
        const QModelIndex index = m_view.indexAt(position);
        if (m_pressedBox.isValid() && index == m_pressedBox && isOnCheckBox(index, position)) {
            emit checkBoxClicked();
        }
        m_pressedBox = QModelIndex();
    } else if (event.button() == Qt::RightButton) {
        const bool isShown = m_menu == Menu::Shown;
        m_menu = isShown ? Menu::None : Menu::Shown;
        if (!isShown) {
            requestMenu(position);
        }
    }
    return true;
}

bool SpreadMouse::doubleClick(const QMouseEvent &event)
{
    if (!m_pressedCellMoved) {
        press(event);
    }
    const QModelIndex index = m_view.indexAt(event.position().toPoint());
    if (event.button() == Qt::LeftButton && index.isValid() && !m_delegate.editor()) {
        m_dragging = false;
        m_view.openEditor(SpreadView::EditStart::GoOn);
    }
    return true;
}

// Some desktops ask for the menu when the right button goes down, others when it comes up, and the mouse of a test does
// not ask at all: in each case one click raises one signal.
bool SpreadMouse::contextMenu(const QContextMenuEvent &event)
{
    if (event.reason() == QContextMenuEvent::Keyboard) {
        return false; // the view's own
    }
    const bool isShown = m_menu == Menu::Shown;
    m_menu = m_menu == Menu::Pressed ? Menu::Shown : Menu::None;
    if (!isShown) {
        requestMenu(event.pos());
    }
    return true;
}

void SpreadMouse::requestMenu(const QPoint &position)
{
    const QModelIndex index = m_view.indexAt(position);
    const QModelIndex cell = index.isValid() ? index : m_view.currentIndex();
    emit rightClicked(cell.column() + 1, cell.row() + 1, m_view.viewport()->mapToGlobal(position));
}

bool SpreadMouse::isOnCheckBox(const QModelIndex &index, const QPoint &position) const
{
    return m_delegate.checkBoxRect(index, m_view.visualRect(index)).contains(position);
}
