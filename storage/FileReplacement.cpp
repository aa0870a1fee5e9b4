#include "storage/FileReplacement.h"

#include "runtime/OwnFiles.h"
#include "runtime/WholeFile.h"
#include "storage/FileBackup.h"

#include <QDir>

namespace {

Failure versionNotKept(const QString &fileName, const Failure &cause)
{
    return {.code = FailureCode::VersionNotKept,
        .arguments = {QDir::toNativeSeparators(backupFolder(fileName)), cause.reason()}};
}

/// Keeps what the file holds as a version.
Result<> keepEarlier(const QString &fileName, const Result<QByteArray> &earlier)
{
    const auto kept = earlier ? keepVersion(fileName, *earlier) : Result<>(earlier.failure());
    return kept ? kept : versionNotKept(fileName, kept.failure());
}

} // namespace

Result<> replaceFile(const QString &fileName, const NewContent &content)
{
    const auto kind = findKind(fileName);
    if (!kind) {
        return kind.failure(); // not "no file": there may be one, and then it would be lost
    }
    Result<QByteArray> earlier = QByteArray();
    if (*kind == FileKind::File) {
        earlier = readWholeFile(fileName);
        auto kept = keepEarlier(fileName, earlier);
        if (!kept && !content.mayLoseEarlier) {
            return kept;
        }
    }
    auto written = writeWholeFile(fileName, content.bytes);
    if (!written || content.extent == Extent::Part) {
        leaveOutOfBackups(fileName, earlier.valueOr({}));
    }
    return written;
}
