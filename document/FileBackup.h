#pragma once

#include "document/FileFailure.h"

#include <QString>

#include <optional>

/// Copies the content of an existing file into the per-user data folder: backups/, one folder per full path, the last
/// ten versions. The copy is on the disk when this returns nothing; else it could not be made, and the file must not be
/// replaced. A file that does not exist, and what is no regular file, needs no copy.
std::optional<FileFailure> backUpFile(const QString &fileName);

/// Where the copies of fileName stand, in the order of their names (the newest last). The folder need not exist.
QString backupFolder(const QString &fileName);
