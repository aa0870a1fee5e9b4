#include "editor/CommandMenus.h"

#include "app/services/Language.h"
#include "editor/RecentFileGroup.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

namespace {

bool isIn(CommandMenus::Scope scope, const CommandInfo &command)
{
    if (command.menu == MenuName::None) {
        return false;
    }
    return scope == CommandMenus::Scope::Editor || command.isInFrame || command.ofFrame;
}

} // namespace

CommandMenus::CommandMenus(QWidget *window, Scope scope) : QObject(window)
{
    for (const CommandInfo &command : commands()) {
        if (!isIn(scope, command)) {
            continue;
        }
        QMenu *&menu = m_menus.at(static_cast<size_t>(command.menu));
        if (!menu) {
            menu = new QMenu(window);
            menu->setObjectName(menuInfo(command.menu).name.toString());
        }
        addLine(command);
    }
    setCaptions();
}

void CommandMenus::addLine(const CommandInfo &command)
{
    QMenu &menu = this->menu(command.menu);
    switch (command.line) {
    case CommandInfo::Line::Command:
        addCommand(menu, command);
        break;
    case CommandInfo::Line::Separator:
        menu.addSeparator()->setObjectName(command.name.toString());
        break;
    case CommandInfo::Line::RecentFiles:
        m_recentFiles = new RecentFileGroup(menu);
        break;
    }
}

void CommandMenus::addCommand(QMenu &menu, const CommandInfo &command)
{
    QAction *action = menu.addAction(QString());
    action->setObjectName(command.name.toString());
    if (command.hasKey()) {
        const bool isOwn = command.keyOwner == CommandInfo::KeyOwner::Menu;
        action->setShortcut(command.key);
        action->setShortcutContext(isOwn ? Qt::WindowShortcut : Qt::WidgetShortcut);
    }
    if (command.bar) {
        action->setCheckable(true);
        action->setChecked(true);
    }
    connect(action, &QAction::triggered, this, [this, &command] { emit chosen(command); });
    m_lines << Line{&command, action};
}

QList<QMenu *> CommandMenus::all() const
{
    QList<QMenu *> menus;
    for (QMenu *menu : m_menus) {
        if (menu) {
            menus << menu;
        }
    }
    return menus;
}

void CommandMenus::setCaptions()
{
    for (int name = 0; name < menuCount; ++name) {
        if (QMenu *menu = m_menus.at(static_cast<size_t>(name))) {
            menu->setTitle(ResString(menuInfo(static_cast<MenuName>(name)).caption));
        }
    }
    for (const Line &line : std::as_const(m_lines)) {
        line.action->setText(ResString(*line.command->caption));
    }
}

void CommandMenus::enable(CommandNeeds needs, bool enabled)
{
    for (const Line &line : std::as_const(m_lines)) {
        if (line.command->needs == needs) {
            line.action->setEnabled(enabled);
        }
    }
}

void CommandMenus::showBarMark(Bar bar, bool shown)
{
    for (const Line &line : std::as_const(m_lines)) {
        if (line.command->bar == bar) {
            line.action->setChecked(shown);
        }
    }
}
