#include "desktop/MenuKey.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {

bool isMenuKey(const QEvent &event)
{
    return event.type() == QEvent::KeyPress
        && static_cast<const QKeyEvent &>(event).keyCombination() == (Qt::SHIFT | Qt::Key_F10);
}

/// Whether there is a menu for it.
bool openMenuOf(QWidget &widget)
{
    const QPoint position = widget.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent wish(QContextMenuEvent::Keyboard, position, widget.mapToGlobal(position));
    QCoreApplication::sendEvent(&widget, &wish);
    return wish.isAccepted();
}

} // namespace

MenuKey::MenuKey(QObject *parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool MenuKey::eventFilter(QObject *watched, QEvent *event)
{
    auto *widget = isMenuKey(*event) ? qobject_cast<QWidget *>(watched) : nullptr;
    return widget && openMenuOf(*widget);
}
