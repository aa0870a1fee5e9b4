#include "platform/SpreadHeader.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

SpreadHeader::SpreadHeader(Qt::Orientation orientation, QWidget *parent) : QHeaderView(orientation, parent)
{
    setSectionsClickable(true);
    setHighlightSections(true);
    setSectionResizeMode(Interactive);
    setDefaultAlignment(Qt::AlignCenter);
    setMinimumSectionSize(8);
}

void SpreadHeader::setFirstSectionFrozen(bool frozen)
{
    m_frozen = frozen;
    viewport()->update();
}

int SpreadHeader::coveredWidth() const
{
    return m_frozen && offset() > 0 && count() > 0 ? sectionSize(0) : 0;
}

int SpreadHeader::sectionAt(const QPoint &place) const
{
    return isOnFrozen(place) ? 0 : logicalIndexAt(place);
}

void SpreadHeader::paintEvent(QPaintEvent *event)
{
    QHeaderView::paintEvent(event);
    if (const int width = coveredWidth()) {
        QPainter painter(viewport());
        paintSection(&painter, QRect(0, 0, width, viewport()->height()), 0);
    }
}

// The grip at the frozen section's right edge belongs to it as well.
bool SpreadHeader::isOnFrozen(const QPoint &place) const
{
    const int width = coveredWidth();
    return width > 0 && place.x() < width + style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
}

// Over the frozen section the base class is told the place that it has in an unscrolled header.
QMouseEvent SpreadHeader::translated(const QMouseEvent &event) const
{
    const bool isPressed = event.buttons() != Qt::NoButton || event.type() == QEvent::MouseButtonRelease;
    const bool onFrozen = isPressed ? m_onFrozen : isOnFrozen(event.position().toPoint());
    const QPointF place = event.position() - QPointF(onFrozen ? offset() : 0, 0);
    return {event.type(), place, event.scenePosition(), event.globalPosition(), event.button(), event.buttons(),
        event.modifiers(), event.pointingDevice()};
}

void SpreadHeader::mousePressEvent(QMouseEvent *event)
{
    m_onFrozen = isOnFrozen(event->position().toPoint());
    QMouseEvent inside = translated(*event);
    QHeaderView::mousePressEvent(&inside);
}

void SpreadHeader::mouseMoveEvent(QMouseEvent *event)
{
    QMouseEvent inside = translated(*event);
    QHeaderView::mouseMoveEvent(&inside);
}

void SpreadHeader::mouseReleaseEvent(QMouseEvent *event)
{
    QMouseEvent inside = translated(*event);
    QHeaderView::mouseReleaseEvent(&inside);
    const int section = sectionAt(event->position().toPoint());
    if (event->button() == Qt::RightButton && section >= 0) {
        emit rightClicked(section, event->globalPosition().toPoint());
    }
}

void SpreadHeader::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_onFrozen = isOnFrozen(event->position().toPoint());
    QMouseEvent inside = translated(*event);
    QHeaderView::mouseDoubleClickEvent(&inside);
}

// The button's release has raised rightClicked() already.
void SpreadHeader::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
}
