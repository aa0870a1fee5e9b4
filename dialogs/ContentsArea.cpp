#include "dialogs/ContentsArea.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>

ContentsArea::ContentsArea(QLayout *contents, QWidget *dialog)
    : QScrollArea(dialog), m_room(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)
{
    auto *page = new QWidget;
    contents->setContentsMargins({});
    page->setLayout(contents);
    setWidget(page);
    page->setAutoFillBackground(false); // the dialog's ground
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
}

void ContentsArea::setRoom(const QSize &room)
{
    m_room = room;
    updateGeometry();
}

QSize ContentsArea::sizeHint() const
{
    return withinRoom(widget()->sizeHint());
}

QSize ContentsArea::minimumSizeHint() const
{
    return withinRoom(widget()->minimumSizeHint());
}

// Where one direction scrolls, its bar takes its part of the other.
QSize ContentsArea::withinRoom(QSize needed) const
{
    const QSize least = widget()->minimumSizeHint();
    if (least.height() > m_room.height()) {
        needed.rwidth() += verticalScrollBar()->sizeHint().width();
    }
    if (least.width() > m_room.width()) {
        needed.rheight() += horizontalScrollBar()->sizeHint().height();
    }
    return needed.boundedTo(m_room);
}

bool ContentsArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry(); // what the contents need has changed
    }
    return QScrollArea::eventFilter(watched, event);
}
