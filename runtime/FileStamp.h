#pragma once

#include <QString>

/// What the system tells of a file without its content being read.
struct FileStamp
{
    bool isFile = false; ///< there is a regular file
    qint64 size = 0;
    qint64 modified = 0; ///< ns since 1970
    qint64 changed = 0; ///< likewise, of content, name or rights; if the system tells it
    quint64 device = 0;
    quint64 inode = 0;

    bool operator==(const FileStamp &) const = default;

    /// Of the file that fileName names, through links.
    static FileStamp of(const QString &fileName);
};

/// Whether a file with that stamp could be changed right now and keep it, since its last change is only just over:
/// file systems count in steps of up to two seconds.
bool mayHideAChange(const FileStamp &stamp);
