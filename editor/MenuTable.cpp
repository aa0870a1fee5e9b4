#include "editor/MenuTable.h"

#include "app/services/Language.h"

QMenu *newMenu(const MenuLine &line, QWidget *parent)
{
    auto *menu = new QMenu(ResString(*line.caption), parent);
    menu->setObjectName(line.name.toString());
    return menu;
}

void addMenuLine(QMenu &menu, const MenuLine &line)
{
    if (!line.caption) {
        menu.addSeparator()->setObjectName(line.name.toString());
        return;
    }
    QAction *action = menu.addAction(ResString(*line.caption));
    action->setObjectName(line.name.toString());
    if (line.shortcut.toCombined() != 0) {
        action->setShortcut(line.shortcut);
        action->setShortcutContext(line.keyOwner == MenuLine::Others ? Qt::WidgetShortcut : Qt::WindowShortcut);
    }
}

void addMenuLines(QMenu &menu, std::span<const MenuLine> lines)
{
    for (const MenuLine &line : lines) {
        addMenuLine(menu, line);
    }
}

QAction &menuAction(const QList<QMenu *> &menus, QStringView name)
{
    for (const QMenu *menu : menus) {
        if (auto *found = menu->findChild<QAction *>(name.toString(), Qt::FindDirectChildrenOnly)) {
            return *found;
        }
    }
    qFatal("No menu holds the command %s", qUtf8Printable(name.toString()));
}
