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

/// What a system call came to that returns a negative number for failure.
Result<> outcomeOf(qint64 result)
{
    return result < 0 ? Failure::lastSystemCall() : Result<>();
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
    constexpr mode_t defaultRights = 0666;
    const QByteArray name = fileNameBytes(fileName);
    const int flags = O_CLOEXEC | O_NOCTTY | (replace ? O_WRONLY | O_CREAT | O_TRUNC : O_RDONLY | O_NONBLOCK);
    return uninterrupted([&] { return ::open(name.constData(), flags, defaultRights); });
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

Failure notAFile()
{
    return {.code = FailureCode::NotAFile, .systemError = EINVAL};
}

Result<> requireRegular(const Status &status)
{
    if (isFolder(status)) {
        return Failure::system(EISDIR);
    }
    return isRegular(status) ? Result<>() : notAFile();
}

} // namespace

SystemFile::~SystemFile()
{
    static_cast<void>(close());
}

Result<> SystemFile::openToRead(const QString &fileName)
{
    Status status{};
    if (auto found = outcomeOf(statusOf(fileName, status)); !found) {
        return found;
    }
    if (auto regular = requireRegular(status); !regular) {
        return regular;
    }
    m_handle = openFile(fileName, false);
    if (auto opened = outcomeOf(m_handle); !opened) {
        return opened;
    }
    if (auto found = outcomeOf(statusOf(m_handle, status)); !found) {
        return found;
    }
    return requireRegular(status);
}

Result<> SystemFile::openToReplace(const QString &fileName)
{
    Status status{};
    if (statusOf(fileName, status) == 0 && isQueue(status)) {
        return notAFile();
    }
    m_handle = openFile(fileName, true);
    return outcomeOf(m_handle);
}

Result<> SystemFile::openOwn(const QString &fileName)
{
    m_handle = openOwnFile(fileName);
    return outcomeOf(m_handle);
}

Result<SystemFile::State> SystemFile::state() const
{
    Status status{};
    if (statusOf(m_handle, status) < 0) {
        return Failure::lastSystemCall();
    }
    return stateOf(status);
}

Result<qint64> SystemFile::read(char *bytes, qint64 maxBytes) const
{
    const auto wanted = static_cast<unsigned>(std::min<qint64>(maxBytes, std::numeric_limits<int>::max()));
    const qint64 count = uninterrupted([&] { return ::read(m_handle, bytes, wanted); });
    if (count < 0) {
        return Failure::lastSystemCall();
    }
    return count;
}

// The system may take a part first and say only at the next call why it takes no more.
Result<> SystemFile::write(QByteArrayView bytes) const
{
    while (!bytes.isEmpty()) {
        const auto wanted = static_cast<unsigned>(std::min<qint64>(bytes.size(), std::numeric_limits<int>::max()));
        const qint64 written = uninterrupted([&] { return ::write(m_handle, bytes.data(), wanted); });
        if (written <= 0) {
            return written < 0 ? Failure::lastSystemCall() : Failure::system(ENOSPC);
        }
        bytes = bytes.sliced(written);
    }
    return {};
}

Result<> SystemFile::sync() const
{
    return outcomeOf(syncFile(m_handle));
}

// Interrupted or not, the handle is gone afterwards: a second call might close a file that another has opened
// meanwhile.
Result<> SystemFile::close()
{
    const int handle = std::exchange(m_handle, -1);
    if (handle < 0 || ::close(handle) == 0 || errno == EINTR) {
        return {};
    }
    return Failure::lastSystemCall();
}

bool isRegularFile(const QString &fileName)
{
    Status status{};
    return statusOf(fileName, status) == 0 && isRegular(status);
}
