#include "app/RecentMenus.h"

#include "app/services/Settings.h"
#include "editor/EditorFrame.h"
#include "editor/RecentFileGroup.h"
#include "editor/frmPrFile.h"

void RecentMenus::AddRecentFile(const QString &fileName)
{
    BuildRecentMenus(); // what another program has stored meanwhile is listed, too
    if (!IsRecentFile(fileName)) {
        StoreRecentFile(fileName);
    }
    BuildRecentMenus();
}

bool RecentMenus::IsRecentFile(const QString &fileName) const
{
    return m_frameGroup.shownFiles().contains(fileName);
}

void RecentMenus::BuildRecentMenus()
{
    const QStringList files = recentFiles();
    m_frameGroup.show(files);
    for (frmPrFile *editor : m_frame.openEditors()) {
        editor->showRecentFiles(files);
    }
}

void RecentMenus::repeatIn(frmPrFile &editor) const
{
    editor.showRecentFiles(m_frameGroup.shownFiles());
}
