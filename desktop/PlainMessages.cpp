#include "desktop/PlainMessages.h"

#include <QChildEvent>
#include <QDialog>
#include <QMessageBox>

PlainMessages::PlainMessages(QDialog &dialog) : QObject(&dialog)
{
    dialog.installEventFilter(this);
}

bool PlainMessages::eventFilter(QObject *watched, QEvent *event)
{
    // A box is polished after it got its text and before it is shown.
    if (event->type() == QEvent::ChildPolished) {
        if (auto *box = qobject_cast<QMessageBox *>(static_cast<QChildEvent *>(event)->child())) {
            box->setTextFormat(Qt::PlainText);
        }
    }
    return QObject::eventFilter(watched, event);
}
