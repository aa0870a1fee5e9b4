#include "document/FileReplacement.h"

#include "document/FileBackup.h"
#include "document/FileHost.h"
#include "runtime/OwnFiles.h"
#include "runtime/WholeFile.h"

#include <QDir>

namespace {

/// Reads what the file holds and keeps it. Returns the system's reason when it is not kept.
std::optional<QString> keepEarlier(const QString &fileName, QByteArray &earlier)
{
    const auto error = readWholeFile(fileName, earlier);
    return error ? std::optional(error->reason()) : keepVersion(fileName, earlier);
}

bool wantsSaveWithoutVersion(const QString &fileName, const QString &reason, FileHost &host)
{
    const QString folder = QDir::toNativeSeparators(backupFolder(fileName));
    return host.askYesNo({OwnText::SaveWithoutVersion, {folder, reason}}, fileName);
}

} // namespace

std::optional<FileFailure> replaceFile(const QString &fileName, QByteArrayView bytes, Extent extent, FileHost &host)
{
    FileKind kind = FileKind::Nothing;
    if (const auto reason = findKind(fileName, kind)) {
        return FileFailure::ofSystem(*reason); // not "no file": there may be one, and then it would be lost
    }
    QByteArray earlier;
    if (kind == FileKind::File) {
        const auto reason = keepEarlier(fileName, earlier);
        if (reason && !wantsSaveWithoutVersion(fileName, *reason, host)) {
            return FileFailure::silent();
        }
    }
    const auto error = writeWholeFile(fileName, bytes);
    if (error || extent == Extent::Part) {
        leaveOutOfBackups(fileName, earlier);
    }
    return error ? std::optional(FileFailure::of(*error)) : std::nullopt;
}
