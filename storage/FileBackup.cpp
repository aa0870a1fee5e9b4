#include "storage/FileBackup.h"

#include "runtime/DataFolder.h"
#include "runtime/FileName.h"
#include "runtime/WholeFile.h"
#include "storage/VersionFolder.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QHash>

using namespace Qt::StringLiterals;

namespace {

QByteArray sumOf(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

/// A file goes by one name here, whatever links lead to it.
QString properName(const QString &fileName)
{
    const QFileInfo info(fileName);
    const QString proper = info.canonicalFilePath();
    return fileNameKey(
        proper.isEmpty() ? info.absoluteFilePath() : proper); // Qt does not find a file whose name is not UTF-8
}

/// The sum of what saves of this run have left half-done in files, by their proper names.
QHash<QString, QByteArray> &leftOvers()
{
    static QHash<QString, QByteArray> sums;
    return sums;
}

void noteDocument(const QString &folder, const QString &fileName)
{
    const QByteArray path = QFileInfo(fileName).absoluteFilePath().toUtf8();
    const QString note = documentNote(folder);
    if (findOwnKind(note) == FileKind::Nothing) {
        static_cast<void>(putOwnFile(note, path)); // without it, the document is never taken for a vanished one
    }
}

} // namespace

QString backupRoot()
{
    return dataFolder() + u"/backups"_s;
}

QString backupFolder(const QString &fileName)
{
    constexpr int readableLength = 60;
    constexpr int hashLength = 16;
    const QFileInfo info(fileName);
    const QByteArray path = fileNameKey(info.absoluteFilePath()).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(hashLength);
    const QString name = shownFileName(info.fileName()).left(readableLength);
    return backupRoot() + u'/' + name + u'-' + QString::fromLatin1(hash);
}

QString documentNote(const QString &folder)
{
    return folder + u".document"_s;
}

Result<> keepVersion(const QString &fileName, const QByteArray &content)
{
    if (leftOvers().value(properName(fileName)) == sumOf(content)) {
        return {};
    }
    const VersionFolder folder(backupFolder(fileName));
    auto added = folder.add(content);
    if (added) {
        noteDocument(folder.path(), fileName);
    }
    return added;
}

void leaveOutOfBackups(const QString &fileName, const QByteArray &earlier)
{
    if (findKind(fileName) != FileKind::File) {
        return;
    }
    const auto content = readWholeFile(fileName);
    if (content && *content != earlier) {
        leftOvers().insert(properName(fileName), sumOf(*content));
    }
}
