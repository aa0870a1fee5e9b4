#pragma once

#include "resources/Texts.h"

#include <QKeySequence>
#include <QMenu>
#include <QString>

#include <optional>
#include <span>

/// A menu, or one line of it: a command, or a separator when it has no caption.
struct MenuLine
{
    /// Who acts on the shortcut: the line itself, or what has the focus, with the menu only showing the key.
    enum KeyOwner : quint8 { Own, Others };

    QStringView name; ///< the object name
    std::optional<Text> caption = {};
    KeyOwner keyOwner = Own;
    QKeyCombination shortcut = QKeyCombination::fromCombined(0); ///< 0 for none
};

inline constexpr MenuLine separatorLine{u""};

/// A menu captioned from the string table.
QMenu *newMenu(const MenuLine &line, QWidget *parent);

/// Adds a command, captioned from the string table, or a separator.
void addMenuLine(QMenu &menu, const MenuLine &line);
void addMenuLines(QMenu &menu, std::span<const MenuLine> lines);

/// The command of that object name in one of the menus, where it must be.
QAction &menuAction(const QList<QMenu *> &menus, QStringView name);
