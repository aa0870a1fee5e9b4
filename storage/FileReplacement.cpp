#include "storage/FileReplacement.h"

#include "runtime/OwnFiles.h"
#include "runtime/WholeFile.h"
#include "storage/FileBackup.h"

#include <QDir>

namespace {

/// Reads what the file holds and keeps it. Returns the system's reason when it is not kept.
std::optional<QString> keepEarlier(const QString &fileName, QByteArray &earlier)
{
    const auto error = readWholeFile(fileName, earlier);
    return error ? std::optional(error->reason()) : keepVersion(fileName, earlier);
}

} // namespace

std::optional<FileFailure> replaceFile(
    const QString &fileName, const NewContent &content, std::optional<FileFailure> &question)
{
    question.reset();
    FileKind kind = FileKind::Nothing;
    if (const auto reason = findKind(fileName, kind)) {
        return FileFailure::ofSystem(*reason); // not "no file": there may be one, and then it would be lost
    }
    QByteArray earlier;
    if (kind == FileKind::File) {
        const auto reason = keepEarlier(fileName, earlier);
        if (reason && !content.mayLoseEarlier) {
            question = {OwnText::SaveWithoutVersion, {QDir::toNativeSeparators(backupFolder(fileName)), *reason}};
            return std::nullopt;
        }
    }
    const auto error = writeWholeFile(fileName, content.bytes);
    if (error || content.extent == Extent::Part) {
        leaveOutOfBackups(fileName, earlier);
    }
    return error ? std::optional(FileFailure::of(*error)) : std::nullopt;
}
