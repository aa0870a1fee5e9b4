#include "runtime/WholeFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

/// Whether the file's content has reached the disk. What is no file of a disk (a device, a pipe) cannot wait for one.
bool reachDisk(const QFile &file)
{
#ifdef Q_OS_WIN
    return _commit(file.handle()) == 0;
#else
    return ::fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
#endif
}

std::optional<QString> readOnce(const QString &fileName, QByteArray &bytes)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::nullopt : std::optional(file.errorString());
}

/// Writes all bytes. The system may take a part first and say only at the next call why it takes no more.
bool writeAll(QFile &file, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0) {
            return false;
        }
        bytes = bytes.sliced(written);
    }
    return true;
}

} // namespace

std::optional<QString> readWholeFile(const QString &fileName, QByteArray &bytes)
{
    constexpr int attempts = 5;
    QFileInfo info(fileName);
    if (info.exists() && !info.isFile()) {
        return qt_error_string(info.isDir() ? EISDIR : ESPIPE);
    }
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const QDateTime changedBefore = info.lastModified();
        if (auto reason = readOnce(fileName, bytes)) {
            return reason;
        }
        info.refresh();
        if (info.size() == bytes.size() && info.lastModified() == changedBefore) {
            return std::nullopt;
        }
    }
    return qt_error_string(EBUSY); // half of what another program is writing must not pass for the whole
}

std::optional<QString> writeWholeFile(const QString &fileName, QByteArrayView bytes)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    if (!writeAll(file, bytes) || !file.flush()) {
        return file.errorString();
    }
    if (!reachDisk(file)) {
        return qt_error_string(errno);
    }
    file.close();
    return file.error() == QFileDevice::NoError ? std::nullopt : std::optional(file.errorString());
}
