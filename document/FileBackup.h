#pragma once

#include <QString>

/// Copies the content of an existing file into the per-user data folder: backups/, one folder per full path, the last
/// ten versions. Returns false when the copy could not be made. A file that does not exist needs no copy: true.
bool backUpFile(const QString &fileName);

/// Where the copies of fileName stand, newest last by name. The folder need not exist.
QString backupFolder(const QString &fileName);
