#pragma once

#include <QString>
#include <QStringList>

#include <array>

/// The font of the parameter grids and the dialogs.
struct UserFontSettings
{
    QString FontName = QStringLiteral("System");
    float FontSize = 12; ///< points
    bool FontItalic = false;
    bool FontBold = false;

    bool operator==(const UserFontSettings &) const = default;
};
extern UserFontSettings UserFont;

/// Entry i hides grid data column i + 1; entry 13 is never stored.
extern std::array<bool, 14> ListVisualState;

/// Reads the frame's stored window state (0 normal, 1 minimised, 2 maximised; 2 when there is none) and fills
/// ListVisualState. A damaged file can give any other number.
void LoadWindowSettings(qint16 &windowState);
void SaveWindowSettings(qint16 windowState);

/// Reads the font; "System" at 12 points, neither italic nor bold, for what is missing or unreadable. The size is what
/// the store says, however odd: userFont() gives one that can be shown.
void LoadUserFont(QString &name, float &size, bool &italic, bool &bold);
void SaveUserFont(const QString &name, float size, bool italic, bool bold);

/// The stored recent files that are not empty, newest first; at most four. None when the newest entry is missing.
QStringList recentFiles();

/// Puts fileName first among the recent files; the fourth is forgotten. A name that recentFiles() gives by then,
/// because another program has stored it, stays where it is.
void StoreRecentFile(const QString &fileName);
