#include "dialogs/ContentsArea.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>

ContentsArea::ContentsArea(QLayout *contents, QWidget *dialog)
    : QScrollArea(dialog), m_maxSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)
{
    auto *page = new QWidget;
    contents->setContentsMargins({});
    page->setLayout(contents);
    setWidget(page);
    page->setAutoFillBackground(false); // the dialog's background
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
}

void ContentsArea::setMaxSize(const QSize &size)
{
    m_maxSize = size;
    updateGeometry();
}

QSize ContentsArea::sizeHint() const
{
    return withinMaxSize(widget()->sizeHint());
}

QSize ContentsArea::minimumSizeHint() const
{
    return withinMaxSize(widget()->minimumSizeHint());
}

// Where one direction scrolls, its bar takes its part of the other.
QSize ContentsArea::withinMaxSize(QSize needed) const
{
    const QSize minimum = widget()->minimumSizeHint();
    if (minimum.height() > m_maxSize.height()) {
        needed.rwidth() += verticalScrollBar()->sizeHint().width();
    }
    if (minimum.width() > m_maxSize.width()) {
        needed.rheight() += horizontalScrollBar()->sizeHint().height();
    }
    return needed.boundedTo(m_maxSize);
}

bool ContentsArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry(); // what the contents need has changed
    }
    return QScrollArea::eventFilter(watched, event);
}
