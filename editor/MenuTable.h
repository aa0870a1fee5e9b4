#pragma once

#include <QKeySequence>
#include <QMenu>
#include <QString>

#include <span>

/// A menu, or one line of it: a command, or a separator when textId is 0.
struct MenuLine
{
    QStringView name; ///< the object name
    qint16 textId = 0;
    QKeyCombination shortcut = QKeyCombination::fromCombined(0); ///< 0 for none
    bool isOthersKey = false; ///< the shortcut is shown only; what has the focus acts on it
};

inline constexpr MenuLine separatorLine{u""};

/// A menu captioned from the string table.
QMenu *newMenu(const MenuLine &line, QWidget *parent);

/// Adds a command, captioned from the string table, or a separator.
void addMenuLine(QMenu &menu, const MenuLine &line);
void addMenuLines(QMenu &menu, std::span<const MenuLine> lines);

/// The command of that object name in one of the menus, where it must be.
QAction &menuAction(const QList<QMenu *> &menus, QStringView name);
