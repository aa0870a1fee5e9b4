#pragma once

#include "editor/MenuTable.h"

/// The menus and commands that the frame has without an editor window and every editor window has too.
namespace SharedMenuLines {

inline constexpr MenuLine fileMenuLine{u"mneFile", Text::MenuFile};
inline constexpr MenuLine visibleMenuLine{u"mneVisual", Text::MenuVisible};
inline constexpr MenuLine windowMenuLine{u"mneWin", Text::MenuWindow};
inline constexpr MenuLine helpMenuLine{u"mneHelp", Text::MenuHelp};

inline constexpr MenuLine openLine{u"mneFileOpen", Text::MenuOpen, MenuLine::Own, Qt::CTRL | Qt::Key_O};
inline constexpr MenuLine exitLine{u"mneFileExit", Text::MenuExit, MenuLine::Own, Qt::CTRL | Qt::Key_Q};
inline constexpr MenuLine barLines[] = {
    {u"mneVisualItem(0)", Text::MenuToolBar},
    {u"mneVisualItem(1)", Text::MenuStatusBar},
};
inline constexpr MenuLine windowLines[] = {
    {u"mneWinItem(0)", Text::MenuCascade},
    {u"mneWinItem(1)", Text::MenuTile},
};
inline constexpr MenuLine helpLines[] = {
    {u"mneHelpItem", Text::MenuContents, MenuLine::Own, Qt::Key_F1},
    {u"mneHelpVer", Text::MenuAbout},
};

} // namespace SharedMenuLines
