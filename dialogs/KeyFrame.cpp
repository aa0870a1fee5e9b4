#include "dialogs/KeyFrame.h"

#include <QEvent>

bool KeyFrame::event(QEvent *event)
{
    QWidget *first = event->type() == QEvent::Shortcut ? firstControl() : nullptr;
    if (!first) {
        return QGroupBox::event(event);
    }
    first->setFocus(Qt::ShortcutFocusReason);
    return true;
}

/// The first control that Tab would reach in the frame; nullptr when there is none.
QWidget *KeyFrame::firstControl() const
{
    const QWidget *frame = this;
    for (QWidget *next = nextInFocusChain(); next != frame; next = next->nextInFocusChain()) {
        const bool isReached = (next->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && next->isEnabled();
        if (isReached && isAncestorOf(next) && next->isVisibleTo(this)) {
            return next;
        }
    }
    return nullptr;
}
