#include "app/FrameMenus.h"

#include "app/Language.h"
#include "editor/MenuTable.h"
#include "editor/RecentFileGroup.h"

#include <QAction>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr MenuLine menuLines[] = {
    {u"mneFile", 10},
    {u"mneVisual", 30},
    {u"mneWin", 40},
    {u"mneHelp", 45},
};
constexpr MenuLine openLine{u"mneFileOpen", 11, Qt::CTRL | Qt::Key_O};
constexpr MenuLine exitLine{u"mneFileExit", 16, Qt::CTRL | Qt::Key_Q};
constexpr MenuLine visibleLines[] = {
    {u"mneVisualItem(0)", 31},
    {u"mneVisualItem(1)", 32},
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

FrameMenus::FrameMenus(QWidget *frame)
    : QObject(frame)
    , m_file(newMenu(menuLines[0], frame))
    , m_visible(newMenu(menuLines[1], frame))
    , m_window(newMenu(menuLines[2], frame))
    , m_help(newMenu(menuLines[3], frame))
{
    addMenuLine(*m_file, openLine);
    m_recentFiles = new RecentFileGroup(*m_file);
    addMenuLine(*m_file, separatorLine);
    addMenuLine(*m_file, exitLine);
    addMenuLines(*m_visible, visibleLines);
    addMenuLines(*m_window, windowLines);
    addMenuLines(*m_help, helpLines);
    for (QAction *item : m_visible->actions()) {
        item->setCheckable(true);
        item->setChecked(true);
    }
}

QAction &FrameMenus::action(QStringView name) const
{
    return menuAction(all(), name);
}

void FrameMenus::setCaptions()
{
    const auto menus = all();
    for (qsizetype i = 0; i < menus.size(); ++i) {
        menus[i]->setTitle(ResString(menuLines[i].textId));
    }
    const auto caption = [this](const MenuLine &line) { action(line.name).setText(ResString(line.textId)); };
    caption(openLine);
    caption(exitLine);
    std::ranges::for_each(visibleLines, caption);
    std::ranges::for_each(windowLines, caption);
    std::ranges::for_each(helpLines, caption);
}
