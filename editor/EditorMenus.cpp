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
    {u"mneFileClose", Text::MenuClose},
    separatorLine,
    {u"mneFileSave", Text::MenuSave, MenuLine::Own, Qt::CTRL | Qt::Key_S},
    {u"mneFileSaveAs", Text::MenuSaveAs, MenuLine::Own, Qt::CTRL | Qt::SHIFT | Qt::Key_S},
    separatorLine,
    {u"mneFilePrint", Text::MenuPrint, MenuLine::Own, Qt::CTRL | Qt::Key_P},
};
constexpr MenuLine editLines[] = {
    {u"mneEditCut", Text::MenuCut, MenuLine::Others, Qt::CTRL | Qt::Key_X},
    {u"mneEditCopy", Text::MenuCopy, MenuLine::Others, Qt::CTRL | Qt::Key_C},
    {u"mneEditPaste", Text::MenuPaste, MenuLine::Others, Qt::CTRL | Qt::Key_V},
    {u"mneEditAddPaste", Text::MenuAddPaste},
    separatorLine,
    {u"mneEditAdd", Text::MenuAddLine},
    {u"mneEditDel", Text::MenuDeleteLines},
    separatorLine,
    {u"mneEditInf", Text::MenuMachineInfo},
    {u"mneEditFunc", Text::MenuFuncCode},
    {u"mneEditCond", Text::MenuPrCond},
};
constexpr MenuLine visibleLines[] = {
    barLines[0],
    barLines[1],
    {u"mneVisualItem(2)"},
    {u"mneVisualItem(3)", Text::MenuFont},
    {u"mneVisualInf", Text::MenuColumns},
};

} // namespace

EditorMenus::EditorMenus(QWidget *window)
    : QObject(window)
    , m_file(newMenu(fileMenuLine, window))
    , m_edit(newMenu({u"mneEdit", Text::MenuEdit}, window))
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
