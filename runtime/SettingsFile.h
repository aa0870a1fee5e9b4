#pragma once

#include <QString>

#include <chrono>
#include <functional>

class QSettings;

/// The per-user settings: on most systems a file, in the format of QSettings, for the user alone. On a full disk, and
/// whatever else goes wrong while it is changed, the file stays as it was.
namespace SettingsFile {

/// The settings file; not a file unless the path is absolute. A configuration home that is not an absolute path counts
/// as none.
QString path();

/// Lets read take values. Never waits. A store of more than 16 MiB, or of no end, gives none and is left as it is.
void read(const std::function<void(const QSettings &)> &read);

/// Lets change take and set values, and stores what it set. No other Tabrix stores meanwhile; one that does not come to
/// an end is waited for once, two seconds at most. False when nothing could be stored.
bool change(const std::function<void(QSettings &)> &change);

/// Waits so long for another Tabrix instead. For tests on a machine that has no time for either.
void setLongestWait(std::chrono::milliseconds wait);

} // namespace SettingsFile
