#include "runtime/OwnFiles.h"

#include "runtime/FileName.h"
#include "runtime/SystemFile.h"
#include "runtime/Uninterrupted.h"

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

Result<> outcomeOf(const std::error_code &error)
{
    return error ? Failure::system(error.value()) : Result<>();
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
Result<FileKind> answer(const fs::file_status &status, const std::error_code &error)
{
    const FileKind kind = kindOf(status);
    if (error && kind != FileKind::Nothing) {
        return Failure::system(error.value());
    }
    return kind;
}

/// The listing of a folder, opened again as long as a signal interrupts that.
fs::directory_iterator openListing(const QString &path, std::error_code &error)
{
    fs::directory_iterator listing;
    do {
        listing = fs::directory_iterator(nativePath(path), error);
    } while (error == std::errc::interrupted);
    return listing;
}

Result<> makeOneFolder(const QString &path)
{
#ifdef Q_OS_WIN
    std::error_code error;
    fs::create_directory(nativePath(path), error);
    return outcomeOf(error);
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

bool isRunning([[maybe_unused]] qint64 process)
{
#ifdef Q_OS_WIN
    return true; // its files cannot be removed while it has them open, nor need they be otherwise
#else
    return ::kill(pid_t(process), 0) == 0 || errno != ESRCH;
#endif
}

} // namespace

Result<FileKind> findKind(const QString &path)
{
    std::error_code error;
    const fs::file_status status = fs::status(nativePath(path), error);
    return answer(status, error);
}

Result<FileKind> findOwnKind(const QString &path)
{
    std::error_code error;
    const fs::file_status status = fs::symlink_status(nativePath(path), error);
    return answer(status, error);
}

FolderListing listFolder(const QString &path)
{
    FolderListing listing;
    std::error_code error;
    std::error_code unknown;
    for (fs::directory_iterator entry = openListing(path, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        std::error_code problem;
        const auto kind = answer(entry->symlink_status(problem), problem);
        if (!kind) {
            unknown = problem;
        }
        listing.entries << FolderEntry{textPath(entry->path().filename()), kind.valueOr(FileKind::Other)};
    }
    std::ranges::sort(listing.entries, {}, &FolderEntry::name);
    listing.outcome = outcomeOf(error ? error : unknown);
    return listing;
}

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

Result<> renameOwnFile(const QString &from, const QString &to)
{
    std::error_code error;
    fs::rename(nativePath(from), nativePath(to), error);
    return error ? outcomeOf(error) : syncFolder(QFileInfo(to).path());
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
