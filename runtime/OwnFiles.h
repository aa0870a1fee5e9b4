#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// Files and folders of the program's own: versions, recovery copies, settings. They are for the user alone from the
/// moment they are made, whatever rights new files have otherwise. What returns a text returns the system's description
/// of what went wrong; nothing when all went well.

/// What stands under a name.
enum class FileKind {
    Nothing, ///< surely: when the system does not tell, that is a failure
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

/// What stands there, through links.
std::optional<QString> findKind(const QString &path, FileKind &kind);
/// What stands there; a link is a thing of its own.
std::optional<QString> findOwnKind(const QString &path, FileKind &kind);

/// The entries of a folder, in the order of their names. Nothing is a failure that could not be listed to its end.
std::optional<QString> listFolder(const QString &path, QList<FolderEntry> &entries);

/// Makes the folder and those above it, as far as they are missing.
std::optional<QString> makeOwnFolder(const QString &path);

/// Takes every right from others that an earlier version may have left them. Links are left alone, and so is what the
/// user does not own.
void keepForUser(const QString &path);

/// Makes a new file with that content, on the disk when this returns nothing; else no file is left where the system
/// lets it be removed. A file of that name goes.
std::optional<QString> writeOwnFile(const QString &fileName, QByteArrayView bytes);

/// Renames a file, and waits until the disk knows. A file of the new name is replaced.
std::optional<QString> renameOwnFile(const QString &from, const QString &to);
/// The same, but a file of the new name makes it fail.
std::optional<QString> renameOwnFileOnce(const QString &from, const QString &to);

/// Makes or replaces a file: at every moment, the one or the other is there as a whole.
std::optional<QString> putOwnFile(const QString &fileName, QByteArrayView bytes);

/// The name under which this program writes a file before it has its own. beginning: of the full path.
QString unfinishedName(const QString &beginning);
/// Removes what killed programs left in the folder under such names. beginning: of the names there.
void removeUnfinished(const QString &folder, const QList<FolderEntry> &entries, const QString &beginning);
