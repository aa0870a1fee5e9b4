#pragma once

#include "runtime/OwnFiles.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

/// One of the earlier contents of a document, as a file of its own.
struct Version
{
    qint64 number; ///< the newest has the greatest
    QDateTime time; ///< when it was kept
    QString name; ///< of its file

    bool operator==(const Version &) const = default;
};

/// The folder in which the versions of one document are kept. Only files whose names are built like a version's are
/// taken for one; whatever else is there belongs to somebody else and is left alone.
class VersionFolder
{
public:
    explicit VersionFolder(QString path);

    const QString &path() const { return m_path; }
    QString pathOf(const Version &version) const { return m_path + u'/' + version.name; }

    /// The versions, oldest first; none for a folder that is not there. Fails if the folder cannot be listed.
    Result<QList<Version>> list() const;

    /// Keeps content as the newest version, unless that holds the same, and lets the oldest go beyond ten. Fails
    /// if the version is not on the disk as a whole.
    Result<> add(const QByteArray &content) const;

    /// What a file of that name is a version of; `std::nullopt` for any other name.
    static std::optional<Version> versionOf(const QString &name);
    /// The versions among the entries of such a folder, oldest first.
    static QList<Version> versionsIn(const QList<FolderEntry> &entries);

private:
    Result<> write(qint64 number, const QByteArray &content) const;
    bool holds(const Version &version, const QByteArray &content) const;

    QString m_path;
};
