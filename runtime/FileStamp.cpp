#include "runtime/FileStamp.h"

#include "runtime/FileName.h"
#include "runtime/SystemPath.h"
#include "runtime/WindowsApi.h"

#include <QDateTime>

#include <algorithm>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#endif

#ifdef Q_OS_WIN

namespace {

/// ns since 1970 of a number of steps of 100 ns since 1601.
qint64 nanoseconds(LARGE_INTEGER time)
{
    constexpr qint64 begin = 116'444'736'000'000'000;
    constexpr qint64 step = 100;
    return (time.QuadPart - begin) * step;
}

FileStamp stampOf(HANDLE file)
{
    BY_HANDLE_FILE_INFORMATION info{};
    FILE_BASIC_INFO times{};
    if (GetFileType(file) != FILE_TYPE_DISK || !GetFileInformationByHandle(file, &info)
        || !GetFileInformationByHandleEx(file, FileBasicInfo, &times, sizeof times)) {
        return {};
    }
    return {.isFile = true,
        .size = qint64(info.nFileSizeHigh) << 32 | qint64(info.nFileSizeLow),
        .modified = nanoseconds(times.LastWriteTime),
        .changed = nanoseconds(times.ChangeTime),
        .device = info.dwVolumeSerialNumber,
        .inode = quint64(info.nFileIndexHigh) << 32 | quint64(info.nFileIndexLow)};
}

} // namespace

// A file is opened without any right, so that it may be busy; a folder cannot be opened like that.
FileStamp FileStamp::of(const QString &fileName)
{
    constexpr DWORD everyone = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(systemPath(fileName).c_str(), 0, everyone, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return {};
    }
    const FileStamp stamp = stampOf(file);
    CloseHandle(file);
    return stamp;
}

#else

namespace {

qint64 nanoseconds(const timespec &time)
{
    constexpr qint64 perSecond = 1'000'000'000;
    return qint64(time.tv_sec) * perSecond + time.tv_nsec;
}

} // namespace

FileStamp FileStamp::of(const QString &fileName)
{
    struct stat info
    {
    };
    if (::stat(fileNameBytes(fileName).constData(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return {};
    }
    return {.isFile = true,
        .size = qint64(info.st_size),
        .modified = nanoseconds(info.st_mtim),
        .changed = nanoseconds(info.st_ctim),
        .device = info.st_dev,
        .inode = info.st_ino};
}

#endif

bool mayHideAChange(const FileStamp &stamp)
{
    constexpr qint64 step = 3'000; // ms
    constexpr qint64 nsPerMs = 1'000'000;
    const qint64 last = std::max(stamp.modified, stamp.changed) / nsPerMs;
    return QDateTime::currentMSecsSinceEpoch() - last < step;
}
