#pragma once

#include "editor/EditorFrame.h"
#include "resources/Texts.h"

#include <QKeySequence>
#include <QStringView>

#include <optional>
#include <span>

/// The menus, in the order of the menu bar. The frame has no Edit menu of its own.
enum class MenuName : quint8 { File, Edit, Visible, Window, Help, None };
inline constexpr int menuCount = int(MenuName::None);

/// A menu's object name and caption.
struct MenuInfo
{
    QStringView name;
    Text caption;
};
const MenuInfo &menuInfo(MenuName menu);

/// A command's button in the tool bar.
struct ToolButtonInfo
{
    QStringView name; ///< the object name
    int position; ///< in the tool bar, from 0
    int picture; ///< its number among the pictures
    int otherPicture; ///< likewise, of its other state; 0 for none
    Text tip;
    bool startsGroup = false; ///< there is a gap before it
};

/// One command with everything that leads to it. A separator and the recent files are lines of a menu only.
struct CommandInfo
{
    enum class Line : quint8 { Command, Separator, RecentFiles };
    /// Who acts on the key: the menu line itself, or what has the focus, with the menu only showing the key.
    enum class KeyOwner : quint8 { Menu, Focus };

    MenuName menu = MenuName::None; ///< None: a key or a button only
    Line line = Line::Command;
    bool isInFrame = false; ///< separators: also in the frame's own menu
    std::optional<Text> caption = {};
    QStringView name = {}; ///< the menu line's object name
    QKeyCombination key = QKeyCombination::fromCombined(0); ///< 0: none
    KeyOwner keyOwner = KeyOwner::Menu;
    std::optional<Bar> bar = {}; ///< the line is ticked while this bar is shown
    CommandNeeds needs = CommandNeeds::Nothing;
    std::optional<ToolButtonInfo> button = {};
    /// Exactly one of them acts: the second on the editor window whose menu it is, or on the active one.
    void (*ofFrame)(EditorFrame &frame) = nullptr;
    void (*ofEditor)(frmPrFile &editor) = nullptr;

    bool hasKey() const { return key.toCombined() != 0; }
};

/// Every command, menu by menu in the order of their lines, then those without a menu line. Menus, tool bar and keys
/// are walks over this table: a new command is a line here and what the line calls.
std::span<const CommandInfo> commands(); // in CommandTable.cpp
