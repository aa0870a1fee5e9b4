#pragma once

#include "document/FileFailure.h"

#include <QString>

#include <optional>

/// Copies the content of an existing file into the per-user data folder: backups/, one folder per full path, the last
/// ten versions. The copy is on the disk when this returns nothing; else it could not be made, and the file must not be
/// replaced. A file that does not exist, what is no regular file and what the newest version holds already needs no
/// copy.
std::optional<FileFailure> backUpFile(const QString &fileName);

/// To be called when a save has failed: the part that it left in fileName is no version to keep, however often the user
/// tries again.
void leaveOutOfBackups(const QString &fileName);

/// Where the copies of fileName stand, in the order of their names (the newest last). The folder need not exist.
QString backupFolder(const QString &fileName);
