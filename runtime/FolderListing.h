#pragma once

#include "runtime/Result.h"

#include <QList>
#include <QString>

/// What a name stands for.
enum class FileKind {
    Nothing, ///< surely: if the system does not tell, that is a failure
    File,
    Folder,
    Other ///< a device, a pipe, a link that was not to be followed
};

struct FolderEntry
{
    QString name;
    FileKind kind; ///< links are not followed

    bool operator==(const FolderEntry &) const = default;
};

/// The kind of what is at path, through links.
Result<FileKind> findKind(const QString &path);
/// The kind of what is at path; a link is FileKind::Other.
Result<FileKind> findOwnKind(const QString &path);

/// What a folder holds.
struct FolderListing
{
    QList<FolderEntry> entries; ///< in the order of their names; as far as they could be listed
    Result<> outcome; ///< a failure if that was not to the end
};
FolderListing listFolder(const QString &path);
