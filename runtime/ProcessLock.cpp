#include "runtime/ProcessLock.h"

#include "runtime/SystemPath.h"
#include "runtime/Uninterrupted.h"
#include "runtime/WindowsApi.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <optional>
#include <utility>

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

Failure lockHeld()
{
    return {.code = FailureCode::LockHeld, .systemError = EBUSY};
}

} // namespace

#ifdef Q_OS_WIN

/// A file that nobody else can open. The system closes and removes it with its program, however that ends.
struct ProcessLock::Holder
{
    explicit Holder(const QString &name)
        : file(CreateFileW(systemPath(name).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
            FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr))
    {
    }
    ~Holder()
    {
        if (file != INVALID_HANDLE_VALUE) {
            CloseHandle(file);
        }
    }
    Q_DISABLE_COPY_MOVE(Holder)

    HANDLE file;
};

Result<> ProcessLock::lock(std::chrono::milliseconds longestWait)
{
    constexpr unsigned long pause = 10; // ms
    const QDeadlineTimer deadline(longestWait);
    for (;;) {
        auto holder = std::make_unique<Holder>(m_fileName);
        if (holder->file != INVALID_HANDLE_VALUE) {
            m_holder = std::move(holder);
            return {};
        }
        const Failure failure = Failure::lastSystemCall();
        // A file that is just being removed cannot be opened either, and is reported as one without the right to it.
        if ((failure.systemError != EBUSY && failure.systemError != EACCES) || deadline.hasExpired()) {
            return failure.systemError == EBUSY ? lockHeld() : failure;
        }
        QThread::msleep(pause);
    }
}

#else

/// An open file on which the system keeps the lock.
struct ProcessLock::Holder
{
    explicit Holder(const QByteArray &name)
        : file(uninterrupted(
            [&] { return ::open(name.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR); }))
    {
    }
    ~Holder()
    {
        if (file >= 0) {
            ::close(file);
        }
    }
    Q_DISABLE_COPY_MOVE(Holder)

    /// Whether the open file is still the one of that name: its last owner may have removed it meanwhile.
    /// `std::nullopt` if the system does not tell; errno then says why.
    std::optional<bool> isNamed(const QByteArray &name) const
    {
        struct stat mine
        {
        };
        struct stat named
        {
        };
        if (::fstat(file, &mine) != 0) {
            return std::nullopt;
        }
        if (::stat(name.constData(), &named) != 0) {
            return errno == ENOENT ? std::optional(false) : std::nullopt;
        }
        return mine.st_dev == named.st_dev && mine.st_ino == named.st_ino;
    }

    int file;
};

Result<> ProcessLock::lock(std::chrono::milliseconds longestWait)
{
    constexpr unsigned long pause = 10; // ms
    const QByteArray name = QFile::encodeName(m_fileName);
    const QDeadlineTimer deadline(longestWait);
    for (;;) {
        auto holder = std::make_unique<Holder>(name);
        const bool isOpen = holder->file >= 0;
        const bool isMine = isOpen && ::flock(holder->file, LOCK_EX | LOCK_NB) == 0;
        const std::optional<bool> isNamed = isMine ? holder->isNamed(name) : false;
        if (isNamed == true) {
            m_holder = std::move(holder);
            return {};
        }
        if (!isNamed || (!isMine && errno != EWOULDBLOCK && errno != EINTR)) {
            return Failure::system(errno);
        }
        if (deadline.hasExpired()) {
            return lockHeld();
        }
        QThread::msleep(pause);
    }
}

#endif

ProcessLock::ProcessLock(QString fileName) : m_fileName(std::move(fileName))
{
}

ProcessLock::~ProcessLock()
{
#ifndef Q_OS_WIN
    if (m_holder) {
        QFile::remove(m_fileName); // while it is locked, so that nobody's lock is removed but this one
    }
#endif
}
