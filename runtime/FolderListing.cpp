#include "runtime/FolderListing.h"

#include "runtime/FileName.h"
#include "runtime/SystemPath.h"
#include "runtime/WindowsApi.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

#ifdef Q_OS_WIN

namespace {

FileKind kindOf(DWORD attributes)
{
    if ((attributes & (FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DEVICE)) != 0) {
        return FileKind::Other;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::Folder : FileKind::File;
}

/// The kind of what a link leads to.
Result<FileKind> linkedKind(const fs::path &path)
{
    constexpr DWORD everyone = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE target =
        CreateFileW(path.c_str(), 0, everyone, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    BY_HANDLE_FILE_INFORMATION info{};
    if (target == INVALID_HANDLE_VALUE) {
        return Failure::lastSystemCall();
    }
    const bool isKnown = GetFileInformationByHandle(target, &info);
    CloseHandle(target);
    return isKnown ? kindOf(info.dwFileAttributes & ~DWORD(FILE_ATTRIBUTE_REPARSE_POINT)) : FileKind::Other;
}

/// That a name is not there is an answer, although the system gives it as an error.
Result<FileKind> answer(const Result<FileKind> &kind)
{
    return !kind && kind.failure().systemError == ENOENT ? FileKind::Nothing : kind;
}

} // namespace

Result<FileKind> findOwnKind(const QString &path)
{
    const DWORD attributes = GetFileAttributesW(systemPath(path).c_str());
    return answer(
        attributes == INVALID_FILE_ATTRIBUTES ? Result<FileKind>(Failure::lastSystemCall()) : kindOf(attributes));
}

Result<FileKind> findKind(const QString &path)
{
    const fs::path native = systemPath(path);
    const DWORD attributes = GetFileAttributesW(native.c_str());
    const bool isLink = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    return isLink ? answer(linkedKind(native)) : findOwnKind(path);
}

FolderListing listFolder(const QString &path)
{
    FolderListing listing;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((systemPath(path) / L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        listing.outcome = Failure::lastSystemCall();
        return listing;
    }
    do {
        const QString name = QString::fromWCharArray(found.cFileName);
        if (name != QLatin1StringView(".") && name != QLatin1StringView("..")) {
            listing.entries << FolderEntry{name, kindOf(found.dwFileAttributes)};
        }
    } while (FindNextFileW(search, &found));
    if (GetLastError() != ERROR_NO_MORE_FILES) {
        listing.outcome = Failure::lastSystemCall();
    }
    FindClose(search);
    std::ranges::sort(listing.entries, {}, &FolderEntry::name);
    return listing;
}

#else

namespace {

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
        listing = fs::directory_iterator(systemPath(path), error);
    } while (error == std::errc::interrupted);
    return listing;
}

} // namespace

Result<FileKind> findKind(const QString &path)
{
    std::error_code error;
    const fs::file_status status = fs::status(systemPath(path), error);
    return answer(status, error);
}

Result<FileKind> findOwnKind(const QString &path)
{
    std::error_code error;
    const fs::file_status status = fs::symlink_status(systemPath(path), error);
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
        listing.entries << FolderEntry{fileNameFromPath(entry->path().filename()), kind.valueOr(FileKind::Other)};
    }
    std::ranges::sort(listing.entries, {}, &FolderEntry::name);
    if (const std::error_code failed = error ? error : unknown) {
        listing.outcome = Failure::system(failed.value());
    }
    return listing;
}

#endif
