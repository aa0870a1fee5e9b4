#include "storage/FileStamp.h"

#include "runtime/FileName.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#endif

#ifdef Q_OS_WIN

FileStamp FileStamp::of(const QString &fileName)
{
    constexpr qint64 nsPerMs = 1'000'000;
    const QFileInfo info(fileName);
    if (!info.isFile()) {
        return {};
    }
    return {.isFile = true, .size = info.size(), .modified = info.lastModified().toMSecsSinceEpoch() * nsPerMs};
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
