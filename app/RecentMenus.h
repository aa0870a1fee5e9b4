#pragma once

#include <QString>

class EditorFrame;
class RecentFileGroup;
class frmPrFile;

/// The recent-file entries of the frame's and of every editor window's File menu.
class RecentMenus
{
public:
    RecentMenus(RecentFileGroup &frameGroup, const EditorFrame &frame) : m_frameGroup(frameGroup), m_frame(frame) { }

    /// Records a file that was opened or saved, unless it is listed, and rebuilds the menus.
    void AddRecentFile(const QString &fileName);
    /// Whether the frame's menu shows exactly that name; capitals count.
    bool IsRecentFile(const QString &fileName) const;
    /// Shows the stored files in every menu.
    void BuildRecentMenus();
    /// Shows in a new window's menu what the frame's menu shows.
    void repeatIn(frmPrFile &editor) const;

private:
    RecentFileGroup &m_frameGroup;
    const EditorFrame &m_frame;
};
