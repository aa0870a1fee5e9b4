#include "runtime/WholeFile.h"

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

} // namespace

std::optional<QString> readWholeFile(const QString &fileName, QByteArray &bytes)
{
    const QFileInfo info(fileName);
    if (info.exists() && !info.isFile()) {
        return qt_error_string(info.isDir() ? EISDIR : ESPIPE);
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::nullopt : std::optional(file.errorString());
}

std::optional<QString> writeWholeFile(const QString &fileName, QByteArrayView bytes)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    if (file.write(bytes.data(), bytes.size()) != bytes.size() || !file.flush()) {
        return file.errorString();
    }
    if (!reachDisk(file)) {
        return qt_error_string(errno);
    }
    file.close();
    return file.error() == QFileDevice::NoError ? std::nullopt : std::optional(file.errorString());
}
