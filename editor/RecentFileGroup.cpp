#include "editor/RecentFileGroup.h"

#include "desktop/PlainCaption.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

constexpr int maxEntries = 4;

} // namespace

RecentFileGroup::RecentFileGroup(QMenu &menu) : QObject(&menu), m_separator(menu.addSeparator())
{
    m_separator->setObjectName(u"mnuRecentFile(0)"_s);
    m_separator->setVisible(false);
    for (int i = 1; i <= maxEntries; ++i) {
        QAction *entry = menu.addAction(QString());
        entry->setObjectName(u"mnuRecentFile(%1)"_s.arg(i));
        entry->setVisible(false);
        connect(entry, &QAction::triggered, this, [this, entry] { emit chosen(entry->data().toString()); });
        m_entries << entry;
    }
}

void RecentFileGroup::show(const QStringList &files)
{
    for (qsizetype i = 0; i < std::min(files.size(), m_entries.size()); ++i) {
        m_separator->setVisible(true);
        m_entries[i]->setText(plainMenuText(files[i]));
        m_entries[i]->setData(files[i]);
        m_entries[i]->setVisible(true);
    }
}

QStringList RecentFileGroup::shownFiles() const
{
    QStringList files;
    for (const QAction *entry : m_entries) {
        if (entry->isVisible()) {
            files << entry->data().toString();
        }
    }
    return files;
}
