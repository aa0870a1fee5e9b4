#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

class QAction;
class QMenu;

/// The recent files of one File menu: mnuRecentFile(0), a separator, and the entries mnuRecentFile(1) to (4). Separator
/// and entries are shown only as far as there are files.
class RecentFileGroup : public QObject
{
    Q_OBJECT

public:
    /// Puts the group at the menu's present end.
    explicit RecentFileGroup(QMenu &menu);

    /// Shows the files in that order. Entries beyond them stay as they are.
    void show(const QStringList &files);
    /// The files of the entries that are shown.
    QStringList shownFiles() const;

signals:
    void chosen(const QString &fileName);

private:
    QAction *m_separator;
    QList<QAction *> m_entries;
};
