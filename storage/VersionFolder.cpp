#include "storage/VersionFolder.h"

#include "runtime/WholeFile.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int keptVersions = 10;
constexpr int sequenceDigits = 8;
constexpr auto timeFormat = "yyyy-MM-dd HH-mm-ss"_L1;

QString versionName(qint64 number, const QDateTime &time)
{
    return u"%1 %2.inv"_s.arg(number, sequenceDigits, 10, QLatin1Char('0')).arg(time.toString(timeFormat));
}

} // namespace

VersionFolder::VersionFolder(QString path) : m_path(std::move(path))
{
}

std::optional<Version> VersionFolder::versionOf(const QString &name)
{
    static const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(u"([0-9]{8,18}) ([0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}-[0-9]{2}-[0-9]{2})"
                                            "\\.inv"_s));
    const auto match = pattern.match(name);
    const QDateTime time = QDateTime::fromString(match.captured(2), timeFormat);
    if (!match.hasMatch() || !time.isValid()) {
        return std::nullopt;
    }
    return Version{match.captured(1).toLongLong(), time, name};
}

QList<Version> VersionFolder::versionsIn(const QList<FolderEntry> &entries)
{
    QList<Version> versions;
    for (const FolderEntry &entry : entries) {
        if (const auto version = versionOf(entry.name); version && entry.kind == FileKind::File) {
            versions << *version;
        }
    }
    std::ranges::sort(versions, {}, [](const Version &version) { return std::pair(version.number, version.name); });
    return versions;
}

std::optional<QString> VersionFolder::list(QList<Version> &versions) const
{
    QList<FolderEntry> entries;
    FileKind kind = FileKind::Nothing;
    auto reason = findKind(m_path, kind);
    if (!reason && kind != FileKind::Nothing) {
        reason = listFolder(m_path, entries);
    }
    versions = versionsIn(entries);
    return reason;
}

std::optional<QString> VersionFolder::add(const QByteArray &content) const
{
    QList<Version> versions;
    if (auto reason = list(versions)) {
        return reason;
    }
    if (!versions.isEmpty() && holds(versions.last(), content)) {
        return std::nullopt; // another copy of it would only push an earlier version out
    }
    if (auto reason = makeOwnFolder(m_path)) {
        return reason;
    }
    keepForUser(m_path);
    if (auto reason = write(versions.isEmpty() ? 1 : versions.last().number + 1, content)) {
        return reason;
    }
    // The new one is not among these, so it is never the one that goes.
    while (versions.size() >= keptVersions) {
        QFile::remove(pathOf(versions.takeFirst()));
    }
    return std::nullopt;
}

/// Writes beside the versions and renames, so that a version is whole whenever it is there.
std::optional<QString> VersionFolder::write(qint64 number, const QByteArray &content) const
{
    const QString unfinished = unfinishedName(m_path + u'/');
    if (auto reason = writeOwnFile(unfinished, content)) {
        return reason;
    }
    // Another Tabrix may take the same number at the same moment.
    constexpr int attempts = 10;
    std::optional<QString> reason;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        reason =
            renameOwnFileOnce(unfinished, m_path + u'/' + versionName(number + attempt, QDateTime::currentDateTime()));
        if (reason != qt_error_string(EEXIST)) {
            break;
        }
    }
    if (reason) {
        QFile::remove(unfinished); // nothing where only the wait for the disk has failed
    }
    return reason;
}

bool VersionFolder::holds(const Version &version, const QByteArray &content) const
{
    QByteArray kept;
    return !readWholeFile(pathOf(version), kept) && kept == content;
}
