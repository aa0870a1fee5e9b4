#pragma once

#include "editor/Commands.h"

#include <QList>
#include <QObject>

#include <array>

class QAction;
class QMenu;
class QWidget;
class RecentFileGroup;

/// The menus of a window, which are in the frame's menu bar while it is active: an editor window's hold every command
/// that has a menu line, the frame's own, for no editor window, what needs none.
class CommandMenus : public QObject
{
    Q_OBJECT

public:
    enum class Scope { Frame, Editor };

    CommandMenus(QWidget *window, Scope scope);

    QList<QMenu *> all() const;
    /// One of the menus; the Edit menu is in Scope::Editor only.
    QMenu &menu(MenuName name) const { return *m_menus.at(static_cast<size_t>(name)); }
    RecentFileGroup &recentFiles() const { return *m_recentFiles; }

    /// Captions menus and commands in the language chosen.
    void setCaptions();
    /// Enables the commands that need this.
    void enable(CommandNeeds needs, bool enabled);
    /// Ticks the line of a bar that is shown.
    void showBarMark(Bar bar, bool shown);

signals:
    void chosen(const CommandInfo &command);

private:
    struct Line
    {
        const CommandInfo *command;
        QAction *action;
    };

    void addLine(const CommandInfo &command);
    void addCommand(QMenu &menu, const CommandInfo &command);

    std::array<QMenu *, menuCount> m_menus{};
    QList<Line> m_lines; ///< the commands
    RecentFileGroup *m_recentFiles = nullptr;
};
