#pragma once

#include "runtime/Result.h"

#include <QByteArray>
#include <QString>

/// Where the versions of all documents are kept.
QString backupRoot();

/// Where the versions of fileName are, in the order of their names (the newest last). The folder need not exist.
QString backupFolder(const QString &fileName);

/// The file beside such a folder that holds the full path of its document, since the folder's name does not tell.
/// Without it, the document is never taken for one that has vanished.
QString documentNote(const QString &folder);

/// Keeps content, which is in fileName and is about to be replaced, in the per-user data folder: one folder per
/// full path, the last ten versions. Fails if it is not on the disk afterwards. What the newest version holds already,
/// and what a save left half-done, needs no version.
Result<> keepVersion(const QString &fileName, const QByteArray &content);

/// To be called when a save has left a part of a document: what fileName holds now is not a version to keep, however
/// often the user tries again. earlier: what it held before; while it still does, nothing was left.
void leaveOutOfBackups(const QString &fileName, const QByteArray &earlier);
