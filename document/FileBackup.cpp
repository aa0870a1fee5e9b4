#include "document/FileBackup.h"

#include "document/DataFolder.h"
#include "runtime/WholeFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

using namespace Qt::StringLiterals;

namespace {

constexpr int keptVersions = 10;
constexpr int sequenceDigits = 8;

/// The copies in folder by age, which their leading sequence number gives.
QStringList versions(const QDir &folder)
{
    return folder.entryList({u"*.inv"_s}, QDir::Files, QDir::Name);
}

QString nextVersionName(const QDir &folder)
{
    const QStringList known = versions(folder);
    const int last = known.isEmpty() ? 0 : known.last().left(sequenceDigits).toInt();
    const QString time = QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH-mm-ss"_s);
    return u"%1 %2.inv"_s.arg(last + 1, sequenceDigits, 10, QLatin1Char('0')).arg(time);
}

/// What failed saves of this run have left in files, by backup folder.
QHash<QString, QByteArray> &leftOvers()
{
    static QHash<QString, QByteArray> contents;
    return contents;
}

/// Gives the copy its name as a version. Another Tabrix may take the same number at the same moment.
bool nameVersion(QFile &copy, const QDir &folder)
{
    constexpr int attempts = 10;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (copy.rename(folder.filePath(nextVersionName(folder)))) {
            return true;
        }
    }
    return false;
}

/// Writes beside the versions and renames, so that a version is whole whenever it is there.
std::optional<QString> writeVersion(const QDir &folder, const QByteArray &content)
{
    QFile copy(folder.filePath(u"unfinished-"_s + QString::number(QCoreApplication::applicationPid())));
    std::optional<QString> reason = writeWholeFile(copy.fileName(), content);
    if (!reason && !nameVersion(copy, folder)) {
        reason = copy.errorString();
    }
    if (reason) {
        copy.remove(); // on a full disk every byte counts
    }
    return reason;
}

/// Whether the newest version, or a failed save of this run, holds the same: another copy of it would only push an
/// earlier version out.
bool needsNoCopy(const QDir &folder, const QByteArray &content)
{
    if (leftOvers().take(folder.path()) == content) {
        return true;
    }
    const QStringList known = versions(folder);
    QByteArray newest;
    return !known.isEmpty() && !readWholeFile(folder.filePath(known.last()), newest) && newest == content;
}

void dropOldVersions(QDir folder)
{
    QStringList known = versions(folder);
    while (known.size() > keptVersions) {
        folder.remove(known.takeFirst());
    }
}

std::optional<QString> copyInto(const QDir &folder, const QString &fileName)
{
    QByteArray content;
    if (auto reason = readWholeFile(fileName, content)) {
        return reason;
    }
    if (needsNoCopy(folder, content)) {
        return std::nullopt;
    }
    if (!folder.mkpath(u"."_s)) {
        return u"the folder cannot be created."_s;
    }
    return writeVersion(folder, content);
}

} // namespace

std::optional<FileFailure> backUpFile(const QString &fileName)
{
    if (!QFileInfo(fileName).isFile()) {
        return std::nullopt;
    }
    const QDir folder(backupFolder(fileName));
    if (const auto reason = copyInto(folder, fileName)) {
        return FileFailure{OwnText::VersionNotKept, {QDir::toNativeSeparators(folder.path()), *reason}};
    }
    dropOldVersions(folder);
    return std::nullopt;
}

void leaveOutOfBackups(const QString &fileName)
{
    QByteArray content;
    if (QFileInfo(fileName).isFile() && !readWholeFile(fileName, content)) {
        leftOvers().insert(backupFolder(fileName), content);
    }
}

QString backupFolder(const QString &fileName)
{
    constexpr int readableLength = 60;
    constexpr int hashLength = 16;
    const QFileInfo info(fileName);
    const QByteArray hash =
        QCryptographicHash::hash(info.absoluteFilePath().toUtf8(), QCryptographicHash::Sha256).toHex().left(hashLength);
    return dataFolder() + u"/backups/"_s + info.fileName().left(readableLength) + u'-' + QString::fromLatin1(hash);
}
