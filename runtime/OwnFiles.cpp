#include "runtime/OwnFiles.h"

#include "runtime/FileName.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace {

constexpr auto othersRights = fs::perms::group_all | fs::perms::others_all;

fs::path nativePath(const QString &path)
{
#ifdef Q_OS_WIN
    return path.toStdWString();
#else
    return fileNameBytes(path).toStdString();
#endif
}

QString textPath(const fs::path &path)
{
#ifdef Q_OS_WIN
    return QString::fromStdWString(path.wstring());
#else
    return fileNameFromBytes(path.c_str());
#endif
}

std::optional<QString> reasonOf(const std::error_code &error)
{
    return error ? std::optional(qt_error_string(error.value())) : std::nullopt;
}

FileKind kindOf(const fs::file_status &status)
{
    switch (status.type()) {
    case fs::file_type::not_found:
        return FileKind::Nothing;
    case fs::file_type::regular:
        return FileKind::File;
    case fs::file_type::directory:
        return FileKind::Folder;
    default:
        return FileKind::Other;
    }
}

/// That a name is not there is an answer, although the system gives it as an error.
std::optional<QString> answer(const fs::file_status &status, const std::error_code &error, FileKind &kind)
{
    kind = kindOf(status);
    return kind == FileKind::Nothing ? std::nullopt : reasonOf(error);
}

std::optional<QString> makeOneFolder(const QString &path)
{
#ifdef Q_OS_WIN
    std::error_code error;
    fs::create_directory(nativePath(path), error);
    return reasonOf(error);
#else
    // Another program may have made it a moment ago.
    const bool made = ::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0 || errno == EEXIST;
    return made ? std::nullopt : std::optional(qt_error_string(errno));
#endif
}

/// Waits until the disk has what was written to the open file or folder. Some disks need no waiting, and say so.
bool reachDisk(int file)
{
#ifdef Q_OS_WIN
    return _commit(file) == 0;
#else
    int result = 0;
    do {
        result = ::fsync(file);
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOTSUP;
#endif
}

/// Writes the content of an open file, waits for the disk and closes the file.
std::optional<QString> writeToDisk(QFile &file, QByteArrayView bytes)
{
    // The system may take a part first and say only at the next call why it takes no more.
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0) {
            return file.errorString();
        }
        bytes = bytes.sliced(written);
    }
    if (!reachDisk(file.handle())) {
        return qt_error_string(errno);
    }
    file.close();
    return file.error() == QFileDevice::NoError ? std::nullopt : std::optional(file.errorString());
}

/// Waits until the disk knows the names in the folder.
std::optional<QString> syncFolder([[maybe_unused]] const QString &path)
{
#ifndef Q_OS_WIN
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) {
        return qt_error_string(errno);
    }
    const int error = reachDisk(folder) ? 0 : errno;
    ::close(folder);
    if (error != 0) {
        return qt_error_string(error);
    }
#endif
    return std::nullopt;
}

bool isRunning([[maybe_unused]] qint64 process)
{
#ifdef Q_OS_WIN
    return true; // its files cannot be removed while it has them open, nor need they be otherwise
#else
    return ::kill(pid_t(process), 0) == 0 || errno != ESRCH;
#endif
}

} // namespace

std::optional<QString> findKind(const QString &path, FileKind &kind)
{
    std::error_code error;
    const fs::file_status status = fs::status(nativePath(path), error);
    return answer(status, error, kind);
}

std::optional<QString> findOwnKind(const QString &path, FileKind &kind)
{
    std::error_code error;
    const fs::file_status status = fs::symlink_status(nativePath(path), error);
    return answer(status, error, kind);
}

std::optional<QString> listFolder(const QString &path, QList<FolderEntry> &entries)
{
    entries.clear();
    std::error_code error;
    std::error_code unknown;
    for (fs::directory_iterator entry(nativePath(path), error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        std::error_code problem;
        FileKind kind = FileKind::Nothing;
        if (answer(entry->symlink_status(problem), problem, kind)) {
            unknown = problem;
            kind = FileKind::Other;
        }
        entries << FolderEntry{textPath(entry->path().filename()), kind};
    }
    std::ranges::sort(entries, {}, &FolderEntry::name);
    return reasonOf(error ? error : unknown);
}

std::optional<QString> makeOwnFolder(const QString &path)
{
    FileKind kind = FileKind::Nothing;
    if (auto reason = findKind(path, kind)) {
        return reason;
    }
    if (kind != FileKind::Nothing) {
        return kind == FileKind::Folder ? std::nullopt : std::optional(qt_error_string(ENOTDIR));
    }
    const QString parent = QFileInfo(path).path();
    if (auto reason = makeOwnFolder(parent)) {
        return reason;
    }
    auto reason = makeOneFolder(path);
    return reason ? reason : syncFolder(parent);
}

void keepForUser(const QString &path)
{
    std::error_code error;
    const fs::path native = nativePath(path);
    const fs::file_status status = fs::symlink_status(native, error);
    const bool ours = status.type() == fs::file_type::regular || status.type() == fs::file_type::directory;
    if (ours && (status.permissions() & othersRights) != fs::perms::none) {
        fs::permissions(native, othersRights, fs::perm_options::remove, error);
    }
}

std::optional<QString> writeOwnFile(const QString &fileName, QByteArrayView bytes)
{
    QFile::remove(fileName);
    QFile file(fileName);
    if (!file.open(
            QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered, QFile::ReadOwner | QFile::WriteOwner)) {
        return file.errorString();
    }
    auto reason = writeToDisk(file, bytes);
    if (reason) {
        file.close();
        QFile::remove(fileName); // on a full disk every byte counts
    }
    return reason;
}

std::optional<QString> renameOwnFile(const QString &from, const QString &to)
{
    std::error_code error;
    fs::rename(nativePath(from), nativePath(to), error);
    return error ? reasonOf(error) : syncFolder(QFileInfo(to).path());
}

std::optional<QString> renameOwnFileOnce(const QString &from, const QString &to)
{
#ifdef RENAME_NOREPLACE
    if (::renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD, QFile::encodeName(to).constData(),
            RENAME_NOREPLACE)
        == 0) {
        return syncFolder(QFileInfo(to).path());
    }
    if (errno != EINVAL && errno != ENOSYS) { // what is no such fault, but a disk that cannot do it, is asked first
        return qt_error_string(errno);
    }
#endif
    FileKind kind = FileKind::Nothing;
    if (auto reason = findOwnKind(to, kind)) {
        return reason;
    }
    return kind == FileKind::Nothing ? renameOwnFile(from, to) : qt_error_string(EEXIST);
}

std::optional<QString> putOwnFile(const QString &fileName, QByteArrayView bytes)
{
    const QString unfinished = unfinishedName(fileName + u'.');
    if (auto reason = writeOwnFile(unfinished, bytes)) {
        return reason;
    }
    auto reason = renameOwnFile(unfinished, fileName);
    if (reason) {
        QFile::remove(unfinished); // nothing where the name was changed already
    }
    return reason;
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
