#include "runtime/WholeFile.h"

#include "runtime/SystemFile.h"

#include <algorithm>
#include <cerrno>

namespace {

Failure tooLarge(qint64 maxBytes)
{
    constexpr qint64 megabyte = 1024 * 1024;
    return {
        .code = FailureCode::FileTooLarge, .arguments = {QString::number(maxBytes / megabyte)}, .systemError = EFBIG};
}

/// Reads to the end, which may come later than the system said: the file may grow, and some files that the system
/// makes up have no size.
Result<QByteArray> readToEnd(const SystemFile &file, qint64 expected, qint64 maxBytes)
{
    constexpr qint64 step = 65536;
    QByteArray bytes(expected + 1, Qt::Uninitialized); // one more, so that a file of that size takes no further piece
    qint64 length = 0;
    while (true) {
        const auto count = file.read(bytes.data() + length, bytes.size() - length);
        if (!count) {
            return count.failure();
        }
        length += *count;
        if (length > maxBytes) {
            return tooLarge(maxBytes);
        }
        if (*count == 0) {
            bytes.truncate(length);
            return bytes;
        }
        if (length == bytes.size()) {
            bytes.resize(std::min(length + std::max(step, length / 2), maxBytes + 1));
        }
    }
}

/// Reads the file once. It fails as changing if somebody has changed it meanwhile.
Result<QByteArray> readOnce(const QString &fileName, qint64 maxBytes)
{
    SystemFile file;
    if (const auto opened = file.openToRead(fileName); !opened) {
        return opened.failure();
    }
    const auto before = file.state();
    if (!before) {
        return before.failure();
    }
    if (before->size > maxBytes) {
        return tooLarge(maxBytes);
    }
    auto bytes = readToEnd(file, before->size, maxBytes);
    if (!bytes) {
        return bytes;
    }
    const auto after = file.state();
    if (!after) {
        return after.failure();
    }
    const bool isWhole = *before == *after && (after->size == bytes->size() || after->size == 0);
    return isWhole ? bytes : Failure{.code = FailureCode::FileChanging, .systemError = EBUSY};
}

bool isChanging(const Result<QByteArray> &bytes)
{
    return !bytes && bytes.failure().code == FailureCode::FileChanging;
}

} // namespace

Result<QByteArray> readWholeFile(const QString &fileName, qint64 maxBytes)
{
    constexpr int attempts = 5;
    auto bytes = readOnce(fileName, maxBytes);
    for (int attempt = 1; attempt < attempts && isChanging(bytes); ++attempt) {
        bytes = readOnce(fileName, maxBytes);
    }
    return bytes;
}

Result<> writeWholeFile(const QString &fileName, QByteArrayView bytes)
{
    SystemFile file;
    if (auto opened = file.openToReplace(fileName); !opened) {
        return opened;
    }
    if (auto written = file.write(bytes); !written) {
        return written;
    }
    if (auto synced = file.sync(); !synced) {
        return synced;
    }
    return file.close();
}
