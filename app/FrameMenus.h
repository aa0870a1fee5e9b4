#pragma once

#include <QObject>

class QAction;
class QMenu;
class QWidget;
class RecentFileGroup;

/// The frame's own menus, shown while no editor window is active.
class FrameMenus : public QObject
{
    Q_OBJECT

public:
    explicit FrameMenus(QWidget *frame);

    QList<QMenu *> all() const { return {m_file, m_visible, m_window, m_help}; }
    QMenu &windowMenu() const { return *m_window; }
    RecentFileGroup &recentFiles() const { return *m_recentFiles; }
    /// The command of that object name.
    QAction &action(QStringView name) const;

    /// Captions menus and commands in the language chosen.
    void setCaptions();

private:
    QMenu *m_file;
    QMenu *m_visible;
    QMenu *m_window;
    QMenu *m_help;
    RecentFileGroup *m_recentFiles;
};
