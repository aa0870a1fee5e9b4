#pragma once

#include <QDateTime>

/// What the backups of all documents together may take. The newest version of a document outlives every bound but the
/// last two, and that of a document whose folder is there without it.
struct BackupBounds
{
    int daysOfVanished = 180; ///< since a document that is no longer in its folder was last kept
    int daysOfVersion = 730; ///< of one that is not the newest
    qint64 bytes = qint64(512) * 1024 * 1024; ///< of all versions
    qsizetype documents = 1000;
};

/// Brings the backups into their bounds, oldest first, removes what killed programs left unfinished, and takes rights
/// on them from others. Only what is named as the backups name it is touched; what cannot be listed stays. To be called
/// at a quiet moment.
void tidyBackups(const BackupBounds &bounds = {}, const QDateTime &now = QDateTime::currentDateTime());
