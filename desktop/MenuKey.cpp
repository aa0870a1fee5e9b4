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

/// False if the widget has no menu.
bool openMenuOf(QWidget &widget)
{
    const QPoint position = widget.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, position, widget.mapToGlobal(position));
    QCoreApplication::sendEvent(&widget, &request);
    return request.isAccepted();
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
