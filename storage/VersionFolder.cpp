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

Result<QList<Version>> VersionFolder::list() const
{
    const auto kind = findKind(m_path);
    if (!kind) {
        return kind.failure();
    }
    if (*kind == FileKind::Nothing) {
        return QList<Version>();
    }
    const FolderListing listing = listFolder(m_path);
    if (!listing.outcome) {
        return listing.outcome.failure();
    }
    return versionsIn(listing.entries);
}

Result<> VersionFolder::add(const QByteArray &content) const
{
    auto listed = list();
    if (!listed) {
        return listed.failure();
    }
    QList<Version> &versions = *listed;
    if (!versions.isEmpty() && holds(versions.last(), content)) {
        return {}; // another copy of it would only push an earlier version out
    }
    if (auto made = makeOwnFolder(m_path); !made) {
        return made;
    }
    keepForUser(m_path);
    if (auto written = write(versions.isEmpty() ? 1 : versions.last().number + 1, content); !written) {
        return written;
    }
    // The new one is not among these, so it is never the one that goes.
    while (versions.size() >= keptVersions) {
        QFile::remove(pathOf(versions.takeFirst()));
    }
    return {};
}

/// Writes beside the versions and renames, so that a version is whole whenever it is there.
Result<> VersionFolder::write(qint64 number, const QByteArray &content) const
{
    const QString unfinished = unfinishedName(m_path + u'/');
    if (auto written = writeOwnFile(unfinished, content); !written) {
        return written;
    }
    // Another Tabrix may take the same number at the same moment.
    constexpr int attempts = 10;
    Result<> renamed;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        renamed =
            renameOwnFileOnce(unfinished, m_path + u'/' + versionName(number + attempt, QDateTime::currentDateTime()));
        if (renamed || renamed.failure().systemError != EEXIST) {
            break;
        }
    }
    if (!renamed) {
        QFile::remove(unfinished); // nothing if only the wait for the disk has failed
    }
    return renamed;
}

bool VersionFolder::holds(const Version &version, const QByteArray &content) const
{
    return readWholeFile(pathOf(version)) == content;
}
