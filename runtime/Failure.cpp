#include "runtime/Failure.h"

#include "runtime/WindowsApi.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace {

#ifdef Q_OS_WIN

struct SystemError
{
    int number; ///< errno
    DWORD code; ///< Windows'; of several for one number the first has the text
};

constexpr std::array<SystemError, 24> systemErrors = {{
    {ENOENT, ERROR_FILE_NOT_FOUND},
    {ENOENT, ERROR_PATH_NOT_FOUND},
    {EACCES, ERROR_ACCESS_DENIED},
    {EBUSY, ERROR_SHARING_VIOLATION},
    {EBUSY, ERROR_LOCK_VIOLATION},
    {EEXIST, ERROR_ALREADY_EXISTS},
    {EEXIST, ERROR_FILE_EXISTS},
    {ENOSPC, ERROR_DISK_FULL},
    {ENOSPC, ERROR_HANDLE_DISK_FULL},
    {EROFS, ERROR_WRITE_PROTECT},
    {EIO, ERROR_IO_DEVICE},
    {ENOTDIR, ERROR_DIRECTORY},
    {EISDIR, ERROR_ACCESS_DENIED}, // what Windows says of a folder that is to be read
    {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
    {EXDEV, ERROR_NOT_SAME_DEVICE},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {ENOMEM, ERROR_OUTOFMEMORY},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {EFBIG, ERROR_FILE_TOO_LARGE},
    {EINVAL, ERROR_INVALID_PARAMETER},
    {EPIPE, ERROR_BROKEN_PIPE},
    {EPIPE, ERROR_NO_DATA},
    {EBADF, ERROR_INVALID_HANDLE},
}};

/// What is added to Windows' codes that errno has no number for.
constexpr int windowsOnly = 0x100000;

/// The system's number of the call made last; 0 if it left none.
int lastError()
{
    const DWORD code = GetLastError();
    const auto known = std::ranges::find(systemErrors, code, &SystemError::code);
    return known != systemErrors.end() ? known->number : code == 0 ? 0 : windowsOnly + int(code);
}

QString textOf(int number)
{
    const auto known = std::ranges::find(systemErrors, number, &SystemError::number);
    if (number < windowsOnly && known == systemErrors.end()) {
        return QString::fromLocal8Bit(std::strerror(number));
    }
    return qt_error_string(number < windowsOnly ? int(known->code) : number - windowsOnly);
}

#else

int lastError()
{
    return errno;
}

QString textOf(int number)
{
    return qt_error_string(number);
}

#endif

} // namespace

Failure Failure::lastSystemCall()
{
    const int number = lastError();
    return system(number == 0 ? EIO : number); // a failure without a number is still one
}

QString Failure::reason() const
{
    return textOf(systemError);
}

bool Failure::isSilent() const
{
    return code == FailureCode::NoParameterSection || code == FailureCode::NoFileName || code == FailureCode::Declined;
}
