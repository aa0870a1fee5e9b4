#include "runtime/OwnFiles.h"

#include "runtime/FileName.h"
#include "runtime/SystemFile.h"
#include "runtime/SystemPath.h"
#include "runtime/Uninterrupted.h"
#include "runtime/WindowsApi.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <filesystem>
#include <system_error>

#ifndef Q_OS_WIN
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_WIN

Result<> moved(const QString &from, const QString &to, DWORD flags)
{
    const bool isMoved = MoveFileExW(systemPath(from).c_str(), systemPath(to).c_str(), flags | MOVEFILE_WRITE_THROUGH);
    return isMoved ? Result<>() : Failure::lastSystemCall();
}

bool isBusy(const Failure &failure)
{
    return failure.systemError == EBUSY || failure.systemError == EACCES;
}

#else

constexpr auto othersRights = fs::perms::group_all | fs::perms::others_all;

#endif

Result<> makeOneFolder(const QString &path)
{
#ifdef Q_OS_WIN
    // Another program may have made it a moment ago.
    const bool made = CreateDirectoryW(systemPath(path).c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS;
    return made ? Result<>() : Failure::lastSystemCall();
#else
    // Another program may have made it a moment ago.
    const bool made = ::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0 || errno == EEXIST;
    return made ? Result<>() : Failure::system(errno);
#endif
}

/// Writes a new file's content, waits for the disk and closes the file.
Result<> writeToDisk(SystemFile &file, QByteArrayView bytes)
{
    if (auto written = file.write(bytes); !written) {
        return written;
    }
    if (auto synced = file.sync(); !synced) {
        return synced;
    }
    return file.close();
}

/// Waits until the disk knows the names in the folder.
Result<> syncFolder([[maybe_unused]] const QString &path)
{
#ifndef Q_OS_WIN
    const QByteArray name = fileNameBytes(path);
    const int folder = uninterrupted([&] { return ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (folder < 0) {
        return Failure::system(errno);
    }
    const int error = uninterrupted([&] { return ::fsync(folder); }) == 0 ? 0 : errno;
    ::close(folder);
    if (error != 0 && error != EINVAL && error != ENOTSUP) { // some disks need no waiting, and say so
        return Failure::system(error);
    }
#endif
    return {};
}

bool isRunning(qint64 process)
{
#ifdef Q_OS_WIN
    const HANDLE found = OpenProcess(SYNCHRONIZE, FALSE, DWORD(process));
    if (!found) {
        return GetLastError() != ERROR_INVALID_PARAMETER; // no such process; otherwise it is somebody else's
    }
    const bool isAlive = WaitForSingleObject(found, 0) == WAIT_TIMEOUT;
    CloseHandle(found);
    return isAlive;
#else
    return ::kill(pid_t(process), 0) == 0 || errno != ESRCH;
#endif
}

} // namespace

Result<> makeOwnFolder(const QString &path)
{
    const auto kind = findKind(path);
    if (!kind) {
        return kind.failure();
    }
    if (*kind != FileKind::Nothing) {
        return *kind == FileKind::Folder ? Result<>() : Failure::system(ENOTDIR);
    }
    const QString parent = QFileInfo(path).path();
    if (auto made = makeOwnFolder(parent); !made) {
        return made;
    }
    auto made = makeOneFolder(path);
    return made ? syncFolder(parent) : made;
}

void keepForUser([[maybe_unused]] const QString &path)
{
#ifndef Q_OS_WIN // where the user's folders are for the user alone, and what is made in them too
    std::error_code error;
    const fs::path native = systemPath(path);
    const fs::file_status status = fs::symlink_status(native, error);
    const bool ours = status.type() == fs::file_type::regular || status.type() == fs::file_type::directory;
    if (ours && (status.permissions() & othersRights) != fs::perms::none) {
        fs::permissions(native, othersRights, fs::perm_options::remove, error);
    }
#endif
}

Result<> writeOwnFile(const QString &fileName, QByteArrayView bytes)
{
    QFile::remove(fileName);
    SystemFile file;
    if (auto opened = file.openOwn(fileName); !opened) {
        return opened;
    }
    auto written = writeToDisk(file, bytes);
    if (!written) {
        static_cast<void>(file.close());
        QFile::remove(fileName); // on a full disk every byte counts
    }
    return written;
}

#ifdef Q_OS_WIN

Result<> renameOwnFile(const QString &from, const QString &to)
{
    constexpr int attempts = 50; // a second: scanners of viruses look at what was just written
    constexpr unsigned long pause = 20; // ms
    Result<> renamed = moved(from, to, MOVEFILE_REPLACE_EXISTING);
    for (int attempt = 1; attempt < attempts && !renamed && isBusy(renamed.failure()); ++attempt) {
        QThread::msleep(pause);
        renamed = moved(from, to, MOVEFILE_REPLACE_EXISTING);
    }
    return renamed;
}

Result<> renameOwnFileOnce(const QString &from, const QString &to)
{
    return moved(from, to, 0);
}

#else

Result<> renameOwnFile(const QString &from, const QString &to)
{
    std::error_code error;
    fs::rename(systemPath(from), systemPath(to), error);
    return error ? Failure::system(error.value()) : syncFolder(QFileInfo(to).path());
}

Result<> renameOwnFileOnce(const QString &from, const QString &to)
{
#ifdef RENAME_NOREPLACE
    if (::renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD, QFile::encodeName(to).constData(),
            RENAME_NOREPLACE)
        == 0) {
        return syncFolder(QFileInfo(to).path());
    }
    if (errno != EINVAL && errno != ENOSYS) { // a disk that cannot do this is asked first whether the name is free
        return Failure::system(errno);
    }
#endif
    const auto kind = findOwnKind(to);
    if (!kind) {
        return kind.failure();
    }
    return *kind == FileKind::Nothing ? renameOwnFile(from, to) : Failure::system(EEXIST);
}

#endif

Result<> putOwnFile(const QString &fileName, QByteArrayView bytes)
{
    const QString unfinished = unfinishedName(fileName + u'.');
    if (auto written = writeOwnFile(unfinished, bytes); !written) {
        return written;
    }
    auto renamed = renameOwnFile(unfinished, fileName);
    if (!renamed) {
        QFile::remove(unfinished); // nothing if the name was changed already
    }
    return renamed;
}

QString unfinishedName(const QString &beginning)
{
    return beginning + u"unfinished-"_s + QString::number(QCoreApplication::applicationPid());
}

void removeUnfinished(const QString &folder, const QList<FolderEntry> &entries, const QString &beginning)
{
    const QString mark = beginning + u"unfinished-"_s;
    for (const FolderEntry &entry : entries) {
        bool isNumber = false;
        const qint64 process = QStringView(entry.name).mid(mark.size()).toLongLong(&isNumber);
        if (entry.kind == FileKind::File && entry.name.startsWith(mark) && isNumber && process > 0
            && !isRunning(process)) {
            QFile::remove(folder + u'/' + entry.name);
        }
    }
}
