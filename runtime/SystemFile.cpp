#include "runtime/SystemFile.h"

#include "runtime/FileName.h"
#include "runtime/Uninterrupted.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <utility>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

std::optional<FileError> failureOf(qint64 result)
{
    return result < 0 ? std::optional(FileError::last()) : std::nullopt;
}

#ifdef Q_OS_WIN

using Status = struct _stat64;

int statusOf(const QString &fileName, Status &status)
{
    return _wstat64(reinterpret_cast<const wchar_t *>(fileName.utf16()), &status);
}

int statusOf(int handle, Status &status)
{
    return _fstat64(handle, &status);
}

int openFile(const QString &fileName, bool replace)
{
    const int flags = _O_BINARY | _O_NOINHERIT | (replace ? _O_WRONLY | _O_CREAT | _O_TRUNC : _O_RDONLY);
    return _wopen(reinterpret_cast<const wchar_t *>(fileName.utf16()), flags, _S_IREAD | _S_IWRITE);
}

int openOwnFile(const QString &fileName)
{
    constexpr int flags = _O_BINARY | _O_NOINHERIT | _O_WRONLY | _O_CREAT | _O_EXCL;
    return _wopen(reinterpret_cast<const wchar_t *>(fileName.utf16()), flags, _S_IREAD | _S_IWRITE);
}

int syncFile(int handle)
{
    return _commit(handle);
}

SystemFile::State stateOf(const Status &status)
{
    return {status.st_size, status.st_mtime, 0};
}

bool isFolder(const Status &status)
{
    return (status.st_mode & _S_IFMT) == _S_IFDIR;
}

bool isRegular(const Status &status)
{
    return (status.st_mode & _S_IFMT) == _S_IFREG;
}

bool isQueue(const Status &status)
{
    return (status.st_mode & _S_IFMT) == _S_IFIFO;
}

#else

using Status = struct stat;

int statusOf(const QString &fileName, Status &status)
{
    return uninterrupted([&] { return ::stat(fileNameBytes(fileName).constData(), &status); });
}

int statusOf(int handle, Status &status)
{
    return uninterrupted([&] { return ::fstat(handle, &status); });
}

/// Does not wait for a writer where a pipe has just taken the file's place.
int openFile(const QString &fileName, bool replace)
{
    constexpr mode_t usualRights = 0666;
    const QByteArray name = fileNameBytes(fileName);
    const int flags = O_CLOEXEC | O_NOCTTY | (replace ? O_WRONLY | O_CREAT | O_TRUNC : O_RDONLY | O_NONBLOCK);
    return uninterrupted([&] { return ::open(name.constData(), flags, usualRights); });
}

int openOwnFile(const QString &fileName)
{
    const QByteArray name = fileNameBytes(fileName);
    constexpr int flags = O_CLOEXEC | O_NOCTTY | O_WRONLY | O_CREAT | O_EXCL;
    return uninterrupted([&] { return ::open(name.constData(), flags, S_IRUSR | S_IWUSR); });
}

int syncFile(int handle)
{
    const int result = uninterrupted([&] { return ::fsync(handle); });
    return result < 0 && (errno == EINVAL || errno == ENOTSUP) ? 0 : result;
}

SystemFile::State stateOf(const Status &status)
{
    return {status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

bool isFolder(const Status &status)
{
    return S_ISDIR(status.st_mode);
}

bool isRegular(const Status &status)
{
    return S_ISREG(status.st_mode);
}

bool isQueue(const Status &status)
{
    return S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode);
}

#endif

std::optional<FileError> irregularity(const Status &status)
{
    if (isFolder(status)) {
        return FileError{FileError::Kind::System, EISDIR};
    }
    return isRegular(status) ? std::nullopt : std::optional(FileError{FileError::Kind::NotAFile, EINVAL});
}

} // namespace

SystemFile::~SystemFile()
{
    static_cast<void>(close());
}

std::optional<FileError> SystemFile::openToRead(const QString &fileName)
{
    Status status{};
    if (auto error = failureOf(statusOf(fileName, status))) {
        return error;
    }
    if (auto error = irregularity(status)) {
        return error;
    }
    m_handle = openFile(fileName, false);
    if (auto error = failureOf(m_handle)) {
        return error;
    }
    if (auto error = failureOf(statusOf(m_handle, status))) {
        return error;
    }
    return irregularity(status);
}

std::optional<FileError> SystemFile::openToReplace(const QString &fileName)
{
    Status status{};
    if (statusOf(fileName, status) == 0 && isQueue(status)) {
        return FileError{FileError::Kind::NotAFile, EINVAL};
    }
    m_handle = openFile(fileName, true);
    return failureOf(m_handle);
}

std::optional<FileError> SystemFile::openOwn(const QString &fileName)
{
    m_handle = openOwnFile(fileName);
    return failureOf(m_handle);
}

std::optional<FileError> SystemFile::state(State &state) const
{
    Status status{};
    auto error = failureOf(statusOf(m_handle, status));
    state = stateOf(status);
    return error;
}

std::optional<FileError> SystemFile::read(char *bytes, qint64 room, qint64 &count) const
{
    const auto wanted = static_cast<unsigned>(std::min<qint64>(room, std::numeric_limits<int>::max()));
    count = uninterrupted([&] { return ::read(m_handle, bytes, wanted); });
    return failureOf(count);
}

// The system may take a part first and say only at the next call why it takes no more.
std::optional<FileError> SystemFile::write(QByteArrayView bytes) const
{
    while (!bytes.isEmpty()) {
        const auto wanted = static_cast<unsigned>(std::min<qint64>(bytes.size(), std::numeric_limits<int>::max()));
        const qint64 written = uninterrupted([&] { return ::write(m_handle, bytes.data(), wanted); });
        if (written <= 0) {
            return written < 0 ? FileError::last() : FileError{FileError::Kind::System, ENOSPC};
        }
        bytes = bytes.sliced(written);
    }
    return std::nullopt;
}

std::optional<FileError> SystemFile::sync() const
{
    return failureOf(syncFile(m_handle));
}

// Interrupted or not, the handle is gone afterwards: a second call might close a file that another has opened
// meanwhile.
std::optional<FileError> SystemFile::close()
{
    const int handle = std::exchange(m_handle, -1);
    if (handle < 0 || ::close(handle) == 0 || errno == EINTR) {
        return std::nullopt;
    }
    return FileError::last();
}

bool isRegularFile(const QString &fileName)
{
    Status status{};
    return statusOf(fileName, status) == 0 && isRegular(status);
}
