#pragma once

#include <QList>
#include <QObject>

class QAction;
class QMenu;
class QWidget;
class RecentFileGroup;

/// The menus of an editor window, which stand in the frame's menu bar while the window is active.
class EditorMenus : public QObject
{
    Q_OBJECT

public:
    explicit EditorMenus(QWidget *window);

    QList<QMenu *> all() const { return {m_file, m_edit, m_visible, m_window, m_help}; }
    QMenu &edit() const { return *m_edit; }
    QMenu &windowMenu() const { return *m_window; }
    RecentFileGroup &recentFiles() const { return *m_recentFiles; }
    /// The command of that object name.
    QAction &action(QStringView name) const;

private:
    QMenu *m_file;
    QMenu *m_edit;
    QMenu *m_visible;
    QMenu *m_window;
    QMenu *m_help;
    RecentFileGroup *m_recentFiles;
};
