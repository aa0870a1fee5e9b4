#include "grid/ActiveFrame.h"

#include "grid/SpreadHeader.h"

#include <QPainter>
#include <QTableView>

#include <array>
#include <utility>

namespace {

std::array<QRect, 2> topAndBottom(const QRect &rect)
{
    return {QRect(rect.left(), rect.top(), rect.width(), 1), QRect(rect.left(), rect.bottom(), rect.width(), 1)};
}

std::array<QRect, 2> leftAndRight(const QRect &rect)
{
    return {QRect(rect.left(), rect.top(), 1, rect.height()), QRect(rect.right(), rect.top(), 1, rect.height())};
}

QRegion regionOf(const std::array<QRect, 2> &lines)
{
    return QRegion(lines[0]) + lines[1];
}

/// The outermost pixels of a rectangle. A fill takes a direct road in the painter, an outline is stroked.
void paintFrame(QPainter &painter, const QRect &rect, const QColor &colour)
{
    for (const auto &lines : {topAndBottom(rect), leftAndRight(rect)}) {
        painter.fillRect(lines[0], colour);
        painter.fillRect(lines[1], colour);
    }
}

} // namespace

QRegion ActiveFrame::uncovered(const QRegion &region) const
{
    return shouldBeAroundView() ? region.subtracted(edges()) : region;
}

void ActiveFrame::paint(QPainter &painter)
{
    const bool isAroundView = shouldBeAroundView();
    if (std::exchange(m_isAroundView, isAroundView) != isAroundView) {
        m_view.viewport()->update(edges()); // the part being painted now may be another one
    }
    if (isAroundView) {
        paintFrame(painter, m_view.viewport()->rect(), m_view.palette().color(QPalette::Highlight));
    } else if (isCellVisible()) {
        paintAroundCell(painter);
    }
}

void ActiveFrame::paintAroundCell(QPainter &painter) const
{
    const QRect cell = m_view.visualRect(m_view.currentIndex()).adjusted(0, 0, -1, -1);
    const QColor colour = m_view.palette().color(m_view.hasFocus() ? QPalette::Highlight : QPalette::Mid);
    painter.setClipRect(visibleArea());
    paintFrame(painter, cell, colour);
    if (m_view.hasFocus()) {
        paintFrame(painter, cell.adjusted(1, 1, -1, -1), colour);
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
    return regionOf(topAndBottom(view)) + regionOf(leftAndRight(view));
}

// The frame around the view must not scroll with the cells. While it stays, the lines along which they move look the
// same afterwards.
void ActiveFrame::follow(const QPoint &moved)
{
    const bool isAroundView = shouldBeAroundView();
    if (!m_isAroundView && !isAroundView) {
        return;
    }
    const bool stays = m_isAroundView && isAroundView;
    QRegion lines;
    if (moved.y() != 0 || !stays) {
        lines += regionOf(topAndBottom(m_view.viewport()->rect()));
    }
    if (moved.x() != 0 || !stays) {
        lines += regionOf(leftAndRight(m_view.viewport()->rect()));
    }
    m_view.viewport()->update(lines.united(lines.translated(moved)));
}
