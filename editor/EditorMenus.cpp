#include "editor/EditorMenus.h"

#include "editor/RecentFileGroup.h"
#include "editor/SharedMenuLines.h"

#include <QAction>
#include <QWidget>

using namespace SharedMenuLines;

namespace {

// The closing key is every child window's own. Cutting, copying and pasting are the grid's keys and those of every text
// box: the menu only shows them.
constexpr MenuLine fileLines[] = {
    openLine,
    {u"mneFileClose", 12},
    separatorLine,
    {u"mneFileSave", 13, MenuLine::Own, Qt::CTRL | Qt::Key_S},
    {u"mneFileSaveAs", 14, MenuLine::Own, Qt::CTRL | Qt::SHIFT | Qt::Key_S},
    separatorLine,
    {u"mneFilePrint", 15, MenuLine::Own, Qt::CTRL | Qt::Key_P},
};
constexpr MenuLine editLines[] = {
    {u"mneEditCut", 21, MenuLine::Others, Qt::CTRL | Qt::Key_X},
    {u"mneEditCopy", 22, MenuLine::Others, Qt::CTRL | Qt::Key_C},
    {u"mneEditPaste", 23, MenuLine::Others, Qt::CTRL | Qt::Key_V},
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
    barLines[0],
    barLines[1],
    {u"mneVisualItem(2)"},
    {u"mneVisualItem(3)", 33},
    {u"mneVisualInf", 34},
};

} // namespace

EditorMenus::EditorMenus(QWidget *window)
    : QObject(window)
    , m_file(newMenu(fileMenuLine, window))
    , m_edit(newMenu({u"mneEdit", 20}, window))
    , m_visible(newMenu(visibleMenuLine, window))
    , m_window(newMenu(windowMenuLine, window))
    , m_help(newMenu(helpMenuLine, window))
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
