#pragma once

#include <QByteArray>
#include <QList>
#include <QSettings>
#include <QString>

/// Where the program keeps things for its user. A test has places of its own, so that nobody's are changed.
namespace UserPlaces {

/// Backups, recovery copies and locks, for this process and those that it starts. The folder need not exist.
void setDataHome(const QString &folder);
/// The settings, for this process and those that it starts: below the folder, or in a key of the registry that goes by
/// its name and is removed at the end.
void setConfigHome(const QString &folder);

/// The settings as they are stored there.
QSettings settings();
/// The same as the lines of a settings file: "[Section]" with its spaces as "%20", "Key=text".
QList<QByteArray> settingsLines();

} // namespace UserPlaces
