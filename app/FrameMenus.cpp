#include "app/FrameMenus.h"

#include "app/services/Language.h"
#include "editor/RecentFileGroup.h"
#include "editor/SharedMenuLines.h"

#include <QAction>
#include <QWidget>

#include <algorithm>

using namespace SharedMenuLines;

namespace {

constexpr MenuLine menuLines[] = {fileMenuLine, visibleMenuLine, windowMenuLine, helpMenuLine};

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
    addMenuLines(*m_visible, barLines);
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
        menus[i]->setTitle(ResString(*menuLines[i].caption));
    }
    const auto caption = [this](const MenuLine &line) { action(line.name).setText(ResString(*line.caption)); };
    caption(openLine);
    caption(exitLine);
    std::ranges::for_each(barLines, caption);
    std::ranges::for_each(windowLines, caption);
    std::ranges::for_each(helpLines, caption);
}
