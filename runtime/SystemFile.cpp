#include "runtime/SystemFile.h"

#include "runtime/FileName.h"
#include "runtime/SystemPath.h"
#include "runtime/Uninterrupted.h"
#include "runtime/WindowsApi.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

/// What a system call came to that returns a negative number for failure.
Result<> outcomeOf(qint64 result)
{
    return result < 0 ? Failure::lastSystemCall() : Result<>();
}

#ifdef Q_OS_WIN

/// What a name or an open file stands for.
struct Status
{
    DWORD attributes = 0;
    DWORD type = 0; ///< as GetFileType() says it
    SystemFile::State state;
};

HANDLE native(qintptr handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

/// An open file, or -1.
qintptr opened(const QString &name, DWORD rights, DWORD sharing, DWORD disposition)
{
    const HANDLE file =
        CreateFileW(systemPath(name).c_str(), rights, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return reinterpret_cast<qintptr>(file);
}

bool isNamedFolder(const QString &name)
{
    const DWORD attributes = GetFileAttributesW(systemPath(name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// 0, or -1. What is no file on a disk has no times.
int statusOf(qintptr handle, Status &status)
{
    constexpr qint64 perSecond = 10'000'000;
    constexpr qint64 step = 100; // ns
    status.type = GetFileType(native(handle));
    BY_HANDLE_FILE_INFORMATION info{};
    if (status.type != FILE_TYPE_DISK) {
        return 0;
    }
    if (!GetFileInformationByHandle(native(handle), &info)) {
        return -1;
    }
    status.attributes = info.dwFileAttributes;
    const qint64 time = qint64(info.ftLastWriteTime.dwHighDateTime) << 32 | qint64(info.ftLastWriteTime.dwLowDateTime);
    status.state = {
        qint64(info.nFileSizeHigh) << 32 | qint64(info.nFileSizeLow), time / perSecond, time % perSecond * step};
    return 0;
}

/// Of what is opened without any right: that works with a busy file too, but not with a folder.
int statusOf(const QString &name, Status &status)
{
    const qintptr handle = opened(name, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    if (handle == -1) {
        const DWORD error = GetLastError();
        const bool isFolder = isNamedFolder(name);
        status.attributes = isFolder ? FILE_ATTRIBUTE_DIRECTORY : 0;
        SetLastError(error);
        return isFolder ? 0 : -1;
    }
    const int result = statusOf(handle, status);
    CloseHandle(native(handle));
    return result;
}

/// A file that is replaced keeps its attributes and rights; nobody else can write to it meanwhile.
qintptr openFile(const QString &name, bool replace)
{
    if (!replace) {
        return opened(name, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    }
    const DWORD attributes = GetFileAttributesW(systemPath(name).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        SetLastError(ERROR_ACCESS_DENIED); // some network disks would take it all the same
        return -1;
    }
    const qintptr handle = opened(name, GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS);
    if (handle == -1 || GetFileType(native(handle)) != FILE_TYPE_DISK || SetEndOfFile(native(handle))) {
        return handle;
    }
    const DWORD error = GetLastError();
    CloseHandle(native(handle));
    SetLastError(error);
    return -1;
}

qintptr openOwnFile(const QString &name)
{
    return opened(name, GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW);
}

qint64 readFile(qintptr handle, char *bytes, unsigned wanted)
{
    DWORD count = 0;
    return ReadFile(native(handle), bytes, wanted, &count, nullptr) ? qint64(count) : -1;
}

qint64 writeFile(qintptr handle, const char *bytes, unsigned wanted)
{
    DWORD count = 0;
    return WriteFile(native(handle), bytes, wanted, &count, nullptr) ? qint64(count) : -1;
}

int syncFile(qintptr handle)
{
    return GetFileType(native(handle)) != FILE_TYPE_DISK || FlushFileBuffers(native(handle)) ? 0 : -1;
}

bool closeFile(qintptr handle)
{
    return CloseHandle(native(handle));
}

SystemFile::State stateOf(const Status &status)
{
    return status.state;
}

bool isFolder(const Status &status)
{
    return (status.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isRegular(const Status &status)
{
    return status.type == FILE_TYPE_DISK && !isFolder(status);
}

bool isQueue(const Status &status)
{
    return status.type == FILE_TYPE_PIPE;
}

#else

using Status = struct stat;

int statusOf(const QString &fileName, Status &status)
{
    return uninterrupted([&] { return ::stat(fileNameBytes(fileName).constData(), &status); });
}

int statusOf(qintptr handle, Status &status)
{
    return uninterrupted([&] { return ::fstat(int(handle), &status); });
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

qint64 readFile(qintptr handle, char *bytes, unsigned wanted)
{
    return uninterrupted([&] { return ::read(int(handle), bytes, wanted); });
}

qint64 writeFile(qintptr handle, const char *bytes, unsigned wanted)
{
    return uninterrupted([&] { return ::write(int(handle), bytes, wanted); });
}

int syncFile(qintptr handle)
{
    const int result = uninterrupted([&] { return ::fsync(int(handle)); });
    return result < 0 && (errno == EINVAL || errno == ENOTSUP) ? 0 : result;
}

// Interrupted or not, the handle is gone afterwards: a second call might close a file that another has opened
// meanwhile.
bool closeFile(qintptr handle)
{
    return ::close(int(handle)) == 0 || errno == EINTR;
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
    if (auto isOpen = outcomeOf(m_handle); !isOpen) {
        return isOpen;
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
    const qint64 count = readFile(m_handle, bytes, wanted);
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
        const qint64 written = writeFile(m_handle, bytes.data(), wanted);
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

Result<> SystemFile::close()
{
    const qintptr handle = std::exchange(m_handle, -1);
    return handle == -1 || closeFile(handle) ? Result<>() : Failure::lastSystemCall();
}

bool isRegularFile(const QString &fileName)
{
    Status status{};
    return statusOf(fileName, status) == 0 && isRegular(status);
}
