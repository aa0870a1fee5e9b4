#pragma once

#include <QString>

#include <functional>

class QSettings;

/// The per-user settings. On Windows they are in the registry, below HKEY_CURRENT_USER\Software\Tabrix, in the key
/// Tabrix or the one that TABRIX_SETTINGS names; elsewhere in a file, in the format of QSettings, for the user alone.
/// On a full disk, and whatever else goes wrong while it is changed, the file stays as it was.
namespace SettingsFile {

/// The settings file, or the name of the registry's key. A configuration home that is not an absolute path counts as
/// none.
QString path();

/// Lets read take values. Never waits. A store of more than 16 MiB, or of no end, gives none and is left as it is.
void read(const std::function<void(const QSettings &)> &read);

/// Lets change take and set values, and stores what it set. No other Tabrix stores meanwhile; one that does not come to
/// an end is waited for once, two seconds at most. False when nothing could be stored.
bool change(const std::function<void(QSettings &)> &change);

} // namespace SettingsFile
