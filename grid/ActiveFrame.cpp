#include "grid/ActiveFrame.h"

#include "grid/SpreadHeader.h"

#include <QPainter>
#include <QTableView>

#include <utility>

void ActiveFrame::paint(QPainter &painter)
{
    const bool isAroundView = shouldBeAroundView();
    if (std::exchange(m_isAroundView, isAroundView) != isAroundView) {
        m_view.viewport()->update(edges()); // the part being painted now may be another one
    }
    if (isAroundView) {
        painter.setPen(m_view.palette().color(QPalette::Highlight));
        painter.drawRect(m_view.viewport()->rect().adjusted(0, 0, -1, -1));
    } else if (isCellVisible()) {
        paintAroundCell(painter);
    }
}

void ActiveFrame::paintAroundCell(QPainter &painter) const
{
    const QRect cell = m_view.visualRect(m_view.currentIndex()).adjusted(0, 0, -2, -2);
    painter.setClipRect(visibleArea());
    painter.setPen(m_view.palette().color(m_view.hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(cell);
    if (m_view.hasFocus()) {
        painter.drawRect(cell.adjusted(1, 1, -1, -1));
    }
}

/// Where the active cell is visible: not below the frozen column.
QRect ActiveFrame::visibleArea() const
{
    const int covered = m_view.currentIndex().column() > 0 ? m_columns.coveredWidth() : 0;
    return m_view.viewport()->rect().adjusted(covered, 0, 0, 0);
}

bool ActiveFrame::isCellVisible() const
{
    const QModelIndex active = m_view.currentIndex();
    return active.isValid() && !m_view.isColumnHidden(active.column())
        && m_view.visualRect(active).intersects(visibleArea());
}

bool ActiveFrame::shouldBeAroundView() const
{
    return m_view.hasFocus() && !isCellVisible();
}

QRegion ActiveFrame::edges() const
{
    const QRect view = m_view.viewport()->rect();
    return QRegion(view).subtracted(view.adjusted(1, 1, -1, -1));
}

// The frame around the view must not scroll with the cells.
void ActiveFrame::follow(const QPoint &moved)
{
    if (m_isAroundView || shouldBeAroundView()) {
        m_view.viewport()->update(edges().united(edges().translated(moved)));
    }
}
