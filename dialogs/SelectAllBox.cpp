#include "dialogs/SelectAllBox.h"

#include "app/services/Common.h"

#include <QFocusEvent>

#include <utility>

namespace {

// Returning from another window or from the box's own menu does not count as entering it: the selection stays.
bool isEntered(Qt::FocusReason reason)
{
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

} // namespace

void SelectAllBox::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    m_enteredByMouse = event->reason() == Qt::MouseFocusReason;
    if (isEntered(event->reason())) {
        SelectAllText(*this);
    }
}

void SelectAllBox::mousePressEvent(QMouseEvent *event)
{
    QLineEdit::mousePressEvent(event);
    // The press that brings the focus also places the caret, which would clear the selection.
    if (std::exchange(m_enteredByMouse, false)) {
        SelectAllText(*this);
    }
}
