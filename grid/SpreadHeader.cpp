#include "grid/SpreadHeader.h"

#include "grid/HeaderSection.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>

#include <algorithm>

SpreadHeader::SpreadHeader(Qt::Orientation orientation, QWidget *parent) : QHeaderView(orientation, parent)
{
    setSectionsClickable(true);
    setHighlightSections(false); // setMarkedSections() does that
    setSectionResizeMode(Interactive);
    setDefaultAlignment(Qt::AlignCenter);
    setMinimumSectionSize(8);
    setTextElideMode(orientation == Qt::Horizontal ? Qt::ElideRight : Qt::ElideNone); // row numbers always fit
}

void SpreadHeader::setFirstSectionFrozen(bool frozen)
{
    m_frozen = frozen;
    viewport()->update();
}

void SpreadHeader::setMarkedSections(int first, int last)
{
    if (first != m_firstMarked || last != m_lastMarked) {
        m_firstMarked = first;
        m_lastMarked = last;
        viewport()->update();
    }
}

// Like sectionSizeFromContents() for the header's own font, but wide enough for the bold letters of a marked section.
QSize SpreadHeader::textSize(int section, QFont font) const
{
    ensurePolished();
    QStyleOptionHeader option;
    initStyleOption(&option);
    font.setBold(true);
    option.section = section;
    option.fontMetrics = QFontMetrics(font);
    option.text = model()->headerData(section, orientation(), Qt::DisplayRole).toString();
    return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), this);
}

void SpreadHeader::initStyleOptionForIndex(QStyleOptionHeader *option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    option->state.setFlag(QStyle::State_On, section >= m_firstMarked && section <= m_lastMarked);
}

void SpreadHeader::paintSection(QPainter *painter, const QRect &rect, int section) const
{
    QStyleOptionHeaderV2 option;
    initStyleOption(&option);
    initStyleOptionForIndex(&option, section);
    option.rect = rect;
    drawHeaderSection(option, *painter, *this);
}

int SpreadHeader::coveredWidth() const
{
    return m_frozen && offset() > 0 && count() > 0 ? sectionSize(0) : 0;
}

int SpreadHeader::sectionAt(const QPoint &position) const
{
    return isOnFrozen(position) ? 0 : logicalIndexAt(position);
}

void SpreadHeader::paintEvent(QPaintEvent *event)
{
    QHeaderView::paintEvent(event);
    if (const int width = coveredWidth()) {
        QPainter painter(viewport());
        paintSection(&painter, QRect(0, 0, width, viewport()->height()), 0);
    }
}

int SpreadHeader::gripWidth() const
{
    return style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
}

// The grip on both sides of its right edge belongs to the frozen section.
bool SpreadHeader::isOnFrozen(const QPoint &position) const
{
    const int width = coveredWidth();
    return width > 0 && position.x() < width + gripWidth();
}

bool SpreadHeader::isOnFrozenGrip(const QPoint &position) const
{
    return isOnFrozen(position) && position.x() >= coveredWidth() - gripWidth();
}

// Over the frozen section the base class gets the position that the section has below the scrolled ones.
QMouseEvent SpreadHeader::translated(const QMouseEvent &event) const
{
    const int shift = isOnFrozen(event.position().toPoint()) ? offset() : 0;
    return {event.type(), event.position() - QPointF(shift, 0), event.scenePosition(), event.globalPosition(),
        event.button(), event.buttons(), event.modifiers(), event.pointingDevice()};
}

void SpreadHeader::mousePressEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    if (event->button() == Qt::LeftButton && isOnFrozenGrip(position)) {
        m_gripOffset = coveredWidth() - position.x();
        return;
    }
    QMouseEvent inside = translated(*event);
    QHeaderView::mousePressEvent(&inside);
}

void SpreadHeader::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    if (m_gripOffset) {
        resizeSection(0, std::max(minimumSectionSize(), position.x() + *m_gripOffset));
        return;
    }
    QMouseEvent inside = translated(*event);
    QHeaderView::mouseMoveEvent(&inside);
    if (event->buttons() == Qt::NoButton && isOnFrozen(position)) {
        setCursor(isOnFrozenGrip(position) ? Qt::SplitHCursor : Qt::ArrowCursor);
    }
}

void SpreadHeader::mouseReleaseEvent(QMouseEvent *event)
{
    m_gripOffset.reset();
    QMouseEvent inside = translated(*event);
    QHeaderView::mouseReleaseEvent(&inside);
    const int section = sectionAt(event->position().toPoint());
    if (event->button() == Qt::RightButton && section >= 0) {
        emit rightClicked(section, event->globalPosition().toPoint());
    }
}

void SpreadHeader::mouseDoubleClickEvent(QMouseEvent *event)
{
    QMouseEvent inside = translated(*event);
    QHeaderView::mouseDoubleClickEvent(&inside);
}

// The release of the button has already raised rightClicked().
void SpreadHeader::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
}
