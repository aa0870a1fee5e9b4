#pragma once

#include "runtime/FolderListing.h"
#include "runtime/Result.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// Files and folders of the program's own: versions, recovery copies, settings. They are for the user alone from the
/// moment they are made, whatever rights new files have otherwise.

/// Makes the folder and those above it, as far as they are missing.
Result<> makeOwnFolder(const QString &path);

/// Takes every right from others that an earlier version may have left them. Links are left alone, and so is what the
/// user does not own.
void keepForUser(const QString &path);

/// Makes a new file with that content and waits until the disk has it. After a failure no file is left, if the system
/// lets it be removed. A file of that name goes.
Result<> writeOwnFile(const QString &fileName, QByteArrayView bytes);

/// Renames a file, and waits until the disk knows. A file of the new name is replaced.
Result<> renameOwnFile(const QString &from, const QString &to);
/// The same, but a file of the new name makes it fail.
Result<> renameOwnFileOnce(const QString &from, const QString &to);

/// Makes or replaces a file: at every moment, the one or the other is there as a whole.
Result<> putOwnFile(const QString &fileName, QByteArrayView bytes);

/// The name under which this program writes a file before it has its own. beginning: of the full path.
QString unfinishedName(const QString &beginning);
/// Removes what killed programs left in the folder under such names. beginning: of the names there.
void removeUnfinished(const QString &folder, const QList<FolderEntry> &entries, const QString &beginning);
