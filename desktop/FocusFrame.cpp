#include "desktop/FocusFrame.h"

#include <QEvent>
#include <QFrame>
#include <QPainter>

FocusFrame::FocusFrame(QFrame &frame) : QObject(&frame), m_frame(frame)
{
    frame.installEventFilter(this);
}

bool FocusFrame::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        m_frame.update();
        return false;
    case QEvent::Paint:
        watched->event(event); // the style's frame first
        paint();
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

void FocusFrame::paint() const
{
    if (m_frame.hasFocus()) {
        QPainter painter(&m_frame);
        painter.setPen(m_frame.palette().color(QPalette::Highlight));
        painter.drawRect(m_frame.rect().adjusted(0, 0, -1, -1));
    }
}
