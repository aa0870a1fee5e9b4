#include "editor/EditorMenus.h"

#include "editor/MenuTable.h"
#include "editor/RecentFileGroup.h"

#include <QAction>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

// The closing key is every child window's own, and copying, cutting and pasting are the grid's keys.
constexpr MenuLine fileLines[] = {
    {u"mneFileOpen", 11, Qt::CTRL | Qt::Key_O},
    {u"mneFileClose", 12},
    separatorLine,
    {u"mneFileSave", 13, Qt::CTRL | Qt::Key_S},
    {u"mneFileSaveAs", 14, Qt::CTRL | Qt::SHIFT | Qt::Key_S},
    separatorLine,
    {u"mneFilePrint", 15, Qt::CTRL | Qt::Key_P},
};
constexpr MenuLine exitLine{u"mneFileExit", 16, Qt::CTRL | Qt::Key_Q};
constexpr MenuLine editLines[] = {
    {u"mneEditCut", 21},
    {u"mneEditCopy", 22},
    {u"mneEditPaste", 23},
    {u"mneEditAddPaste", 24},
    separatorLine,
    {u"mneEditAdd", 25},
    {u"mneEditDel", 26},
    separatorLine,
    {u"mneEditInf", 27},
    {u"mneEditFunc", 28},
    {u"mneEditCond", 29},
};
constexpr MenuLine visibleLines[] = {
    {u"mneVisualItem(0)", 31},
    {u"mneVisualItem(1)", 32},
    separatorLine,
    {u"mneVisualItem(3)", 33},
    {u"mneVisualInf", 34},
};
constexpr MenuLine windowLines[] = {
    {u"mneWinItem(0)", 41},
    {u"mneWinItem(1)", 42},
};
constexpr MenuLine helpLines[] = {
    {u"mneHelpItem", 46, Qt::Key_F1},
    {u"mneHelpVer", 47},
};

} // namespace

EditorMenus::EditorMenus(QWidget *window)
    : QObject(window)
    , m_file(newMenu({u"mneFile", 10}, window))
    , m_edit(newMenu({u"mneEdit", 20}, window))
    , m_visible(newMenu({u"mneVisual", 30}, window))
    , m_window(newMenu({u"mneWin", 40}, window))
    , m_help(newMenu({u"mneHelp", 45}, window))
{
    addMenuLines(*m_file, fileLines);
    m_recentFiles = new RecentFileGroup(*m_file);
    addMenuLine(*m_file, separatorLine);
    addMenuLine(*m_file, exitLine);
    addMenuLines(*m_edit, editLines);
    addMenuLines(*m_visible, visibleLines);
    addMenuLines(*m_window, windowLines);
    addMenuLines(*m_help, helpLines);
    action(u"mneVisualItem(0)").setCheckable(true);
    action(u"mneVisualItem(1)").setCheckable(true);
}

QAction &EditorMenus::action(QStringView name) const
{
    return menuAction(all(), name);
}
