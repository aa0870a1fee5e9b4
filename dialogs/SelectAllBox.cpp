#include "dialogs/SelectAllBox.h"

#include "app/services/Common.h"

#include <QFocusEvent>

#include <utility>

namespace {

// Coming back from another window or from the box's own menu is not entering it: what was selected stays selected.
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
    // The press that brings the focus places the caret after it and would leave nothing selected.
    if (std::exchange(m_enteredByMouse, false)) {
        SelectAllText(*this);
    }
}
