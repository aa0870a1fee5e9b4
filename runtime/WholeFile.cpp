#include "runtime/WholeFile.h"

#include "runtime/SystemFile.h"

#include <algorithm>
#include <cerrno>

namespace {

constexpr FileError tooLarge{FileError::Kind::TooLarge, EFBIG};

/// Reads to the end, which may come later than the system said: the file may grow, and some files that the system
/// makes up have no size.
std::optional<FileError> readToEnd(const SystemFile &file, qint64 expected, qint64 most, QByteArray &bytes)
{
    constexpr qint64 step = 65536;
    bytes.resize(expected + 1); // one more, so that a file of the expected size takes no further piece
    qint64 length = 0;
    while (true) {
        qint64 count = 0;
        if (auto error = file.read(bytes.data() + length, bytes.size() - length, count)) {
            return error;
        }
        length += count;
        if (length > most) {
            return tooLarge;
        }
        if (count == 0) {
            bytes.truncate(length);
            return std::nullopt;
        }
        if (length == bytes.size()) {
            bytes.resize(std::min(length + std::max(step, length / 2), most + 1));
        }
    }
}

/// Reads the file once. isWhole tells whether nobody has changed it meanwhile.
std::optional<FileError> readOnce(const QString &fileName, QByteArray &bytes, qint64 most, bool &isWhole)
{
    SystemFile file;
    SystemFile::State before;
    SystemFile::State after;
    if (auto error = file.openToRead(fileName)) {
        return error;
    }
    if (auto error = file.state(before)) {
        return error;
    }
    if (before.size > most) {
        return tooLarge;
    }
    if (auto error = readToEnd(file, before.size, most, bytes)) {
        return error;
    }
    if (auto error = file.state(after)) {
        return error;
    }
    isWhole = before == after && (after.size == bytes.size() || after.size == 0);
    return std::nullopt;
}

} // namespace

std::optional<FileError> readWholeFile(const QString &fileName, QByteArray &bytes, qint64 most)
{
    constexpr int attempts = 5;
    bool isWhole = false;
    std::optional<FileError> error;
    for (int attempt = 0; attempt < attempts && !isWhole && !error; ++attempt) {
        error = readOnce(fileName, bytes, most, isWhole);
    }
    if (!isWhole) {
        bytes = {}; // half of what another program is writing must not pass for the whole
    }
    return isWhole || error ? error : FileError{FileError::Kind::Changing, EBUSY};
}

std::optional<FileError> writeWholeFile(const QString &fileName, QByteArrayView bytes)
{
    SystemFile file;
    if (auto error = file.openToReplace(fileName)) {
        return error;
    }
    if (auto error = file.write(bytes)) {
        return error;
    }
    if (auto error = file.sync()) {
        return error;
    }
    return file.close();
}
