#pragma once

#include "editor/MenuTable.h"

/// The menus and commands that the frame has without an editor window and every editor window has too.
namespace SharedMenuLines {

inline constexpr MenuLine fileMenuLine{u"mneFile", 10};
inline constexpr MenuLine visibleMenuLine{u"mneVisual", 30};
inline constexpr MenuLine windowMenuLine{u"mneWin", 40};
inline constexpr MenuLine helpMenuLine{u"mneHelp", 45};

inline constexpr MenuLine openLine{u"mneFileOpen", 11, MenuLine::Own, Qt::CTRL | Qt::Key_O};
inline constexpr MenuLine exitLine{u"mneFileExit", 16, MenuLine::Own, Qt::CTRL | Qt::Key_Q};
inline constexpr MenuLine barLines[] = {
    {u"mneVisualItem(0)", 31},
    {u"mneVisualItem(1)", 32},
};
inline constexpr MenuLine windowLines[] = {
    {u"mneWinItem(0)", 41},
    {u"mneWinItem(1)", 42},
};
inline constexpr MenuLine helpLines[] = {
    {u"mneHelpItem", 46, MenuLine::Own, Qt::Key_F1},
    {u"mneHelpVer", 47},
};

} // namespace SharedMenuLines
