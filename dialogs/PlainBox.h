#pragma once

#include <QFocusEvent>
#include <QLineEdit>

/// A text box that keeps its text unselected and its caret in place, by whatever way it is entered.
class PlainBox : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        const bool isMouse = event->reason() == Qt::MouseFocusReason;
        QFocusEvent entered(event->type(), isMouse ? event->reason() : Qt::OtherFocusReason); // keys would select all
        QLineEdit::focusInEvent(&entered);
    }
};
