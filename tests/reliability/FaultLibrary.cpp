// A library that is preloaded: it stands between a program and the system's calls on files, and makes one of them fail,
// stop halfway or end the process. See FaultPlan.h.

#include "tests/reliability/FaultStrike.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

// So that a call's form for large files is another name of its plain form
static_assert(sizeof(off_t) == 8 && sizeof(struct stat) == sizeof(struct stat64));

namespace {

/// The listing that is to break off, and how many names of it were given.
std::atomic<DIR *> brokenListing = nullptr;
std::atomic<int> listedNames = 0;

/// The system's own form of the call that is being stood in for.
template <typename Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

int openFile(int folder, const char *name, int flags, mode_t mode)
{
    return onPath(FaultCall::Open, folder, name,
        [&] { return next<int(int, const char *, int, ...)>("openat")(folder, name, flags, mode); });
}

/// The last argument of open() and its like; it is there when a file may be made.
mode_t modeOf(int flags, va_list arguments)
{
    const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return makes ? static_cast<mode_t>(va_arg(arguments, unsigned)) : 0;
}

/// Begins a listing by call; one that is cut short breaks off behind its first names.
template <typename Call>
DIR *list(int folder, const char *name, const Call &call)
{
    if (!isArmed()) {
        return call();
    }
    const FaultStrike strike(FaultCall::Opendir, pathOf(folder, name));
    if (strike.fails()) {
        FaultStrike::failure();
        return nullptr;
    }
    DIR *listing = call();
    if (strike.isShort()) {
        listedNames = 0;
        brokenListing = listing;
    }
    return listing;
}

} // namespace

// NOLINTBEGIN: the names and arguments are the system's
extern "C" {

#define EXPORTED __attribute__((visibility("default")))
#define SAME_AS(name) EXPORTED __attribute__((alias(#name)))

EXPORTED void tabrixSetFaultPlan(FaultPlan *newPlan)
{
    followedPlan = newPlan;
}

EXPORTED int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openFile(AT_FDCWD, path, flags, mode);
}
EXPORTED int openat(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openFile(folder, path, flags, mode);
}
EXPORTED int __open_2(const char *path, int flags)
{
    return openFile(AT_FDCWD, path, flags, 0);
}
EXPORTED int __openat_2(int folder, const char *path, int flags)
{
    return openFile(folder, path, flags, 0);
}
EXPORTED int creat(const char *path, mode_t mode)
{
    return openFile(AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode);
}
SAME_AS(open) int open64(const char *path, int flags, ...);
SAME_AS(openat) int openat64(int folder, const char *path, int flags, ...);
SAME_AS(__open_2) int __open64_2(const char *path, int flags);
SAME_AS(__openat_2) int __openat64_2(int folder, const char *path, int flags);
SAME_AS(creat) int creat64(const char *path, mode_t mode);
EXPORTED FILE *fopen(const char *path, const char *mode)
{
    FILE *file = nullptr;
    onPath(FaultCall::Open, AT_FDCWD, path, [&] {
        file = next<FILE *(const char *, const char *)>("fopen")(path, mode);
        return 0;
    });
    return file;
}
SAME_AS(fopen) FILE *fopen64(const char *path, const char *mode);

EXPORTED ssize_t read(int descriptor, void *bytes, size_t size)
{
    return moveBytes(FaultCall::Read, descriptor, size,
        [&](size_t part) { return next<ssize_t(int, void *, size_t)>("read")(descriptor, bytes, part); });
}
EXPORTED ssize_t pread(int descriptor, void *bytes, size_t size, off_t place)
{
    return moveBytes(FaultCall::Read, descriptor, size, [&](size_t part) {
        return next<ssize_t(int, void *, size_t, off_t)>("pread")(descriptor, bytes, part, place);
    });
}
SAME_AS(pread) ssize_t pread64(int descriptor, void *bytes, size_t size, off64_t place);

EXPORTED ssize_t write(int descriptor, const void *bytes, size_t size)
{
    return moveBytes(FaultCall::Write, descriptor, size,
        [&](size_t part) { return next<ssize_t(int, const void *, size_t)>("write")(descriptor, bytes, part); });
}
EXPORTED ssize_t writev(int descriptor, const iovec *parts, int count)
{
    return moveBytes(FaultCall::Write, descriptor, static_cast<size_t>(count), [&](size_t part) {
        return next<ssize_t(int, const iovec *, int)>("writev")(descriptor, parts, static_cast<int>(part));
    });
}
EXPORTED ssize_t pwrite(int descriptor, const void *bytes, size_t size, off_t place)
{
    return moveBytes(FaultCall::Write, descriptor, size, [&](size_t part) {
        return next<ssize_t(int, const void *, size_t, off_t)>("pwrite")(descriptor, bytes, part, place);
    });
}
EXPORTED ssize_t sendfile(int out, int in, off_t *place, size_t size)
{
    return moveBytes(FaultCall::Write, out, size,
        [&](size_t part) { return next<ssize_t(int, int, off_t *, size_t)>("sendfile")(out, in, place, part); });
}
EXPORTED int ftruncate(int descriptor, off_t size)
{
    return onDescriptor(
        FaultCall::Write, descriptor, [&] { return next<int(int, off_t)>("ftruncate")(descriptor, size); });
}
EXPORTED int truncate(const char *path, off_t size)
{
    return onPath(
        FaultCall::Write, AT_FDCWD, path, [&] { return next<int(const char *, off_t)>("truncate")(path, size); });
}
SAME_AS(pwrite) ssize_t pwrite64(int descriptor, const void *bytes, size_t size, off64_t place);
SAME_AS(sendfile) ssize_t sendfile64(int out, int in, off64_t *place, size_t size);
SAME_AS(ftruncate) int ftruncate64(int descriptor, off64_t size);
SAME_AS(truncate) int truncate64(const char *path, off64_t size);

EXPORTED int fsync(int descriptor)
{
    return onDescriptor(FaultCall::Fsync, descriptor, [&] { return next<int(int)>("fsync")(descriptor); });
}
EXPORTED int fdatasync(int descriptor)
{
    return onDescriptor(FaultCall::Fsync, descriptor, [&] { return next<int(int)>("fdatasync")(descriptor); });
}
/// As with the real one, the descriptor is gone whatever is returned.
EXPORTED int close(int descriptor)
{
    const auto closeIt = [&] { return next<int(int)>("close")(descriptor); };
    if (!isArmed()) {
        return closeIt();
    }
    const FaultStrike strike(FaultCall::Close, pathOf(descriptor));
    const int result = closeIt();
    return strike.fails() ? FaultStrike::failure() : result;
}

EXPORTED int rename(const char *from, const char *to)
{
    return renameBetween(
        AT_FDCWD, from, AT_FDCWD, to, [&] { return next<int(const char *, const char *)>("rename")(from, to); });
}
EXPORTED int renameat(int folder, const char *from, int newFolder, const char *to)
{
    return renameBetween(folder, from, newFolder, to,
        [&] { return next<int(int, const char *, int, const char *)>("renameat")(folder, from, newFolder, to); });
}
EXPORTED int renameat2(int folder, const char *from, int newFolder, const char *to, unsigned flags)
{
    return renameBetween(folder, from, newFolder, to, [&] {
        return next<int(int, const char *, int, const char *, unsigned)>("renameat2")(
            folder, from, newFolder, to, flags);
    });
}
EXPORTED int link(const char *from, const char *to)
{
    return renameBetween(
        AT_FDCWD, from, AT_FDCWD, to, [&] { return next<int(const char *, const char *)>("link")(from, to); });
}
EXPORTED int linkat(int folder, const char *from, int newFolder, const char *to, int flags)
{
    return renameBetween(folder, from, newFolder, to, [&] {
        return next<int(int, const char *, int, const char *, int)>("linkat")(folder, from, newFolder, to, flags);
    });
}

EXPORTED int unlink(const char *path)
{
    return onPath(FaultCall::Unlink, AT_FDCWD, path, [&] { return next<int(const char *)>("unlink")(path); });
}
EXPORTED int unlinkat(int folder, const char *path, int flags)
{
    return onPath(FaultCall::Unlink, folder, path,
        [&] { return next<int(int, const char *, int)>("unlinkat")(folder, path, flags); });
}
EXPORTED int rmdir(const char *path)
{
    return onPath(FaultCall::Unlink, AT_FDCWD, path, [&] { return next<int(const char *)>("rmdir")(path); });
}
EXPORTED int remove(const char *path)
{
    return onPath(FaultCall::Unlink, AT_FDCWD, path, [&] { return next<int(const char *)>("remove")(path); });
}
EXPORTED int mkdir(const char *path, mode_t mode)
{
    return onPath(
        FaultCall::Mkdir, AT_FDCWD, path, [&] { return next<int(const char *, mode_t)>("mkdir")(path, mode); });
}
EXPORTED int mkdirat(int folder, const char *path, mode_t mode)
{
    return onPath(FaultCall::Mkdir, folder, path,
        [&] { return next<int(int, const char *, mode_t)>("mkdirat")(folder, path, mode); });
}

EXPORTED DIR *opendir(const char *path)
{
    return list(AT_FDCWD, path, [&] { return next<DIR *(const char *)>("opendir")(path); });
}
EXPORTED DIR *fdopendir(int descriptor)
{
    return list(descriptor, "", [&] { return next<DIR *(int)>("fdopendir")(descriptor); });
}
EXPORTED int closedir(DIR *listing)
{
    DIR *closed = listing;
    brokenListing.compare_exchange_strong(closed, nullptr);
    return next<int(DIR *)>("closedir")(listing);
}
EXPORTED dirent *readdir(DIR *listing)
{
    constexpr int namesGiven = 3; // ".", ".." and one more
    if (listing == brokenListing && ++listedNames > namesGiven) {
        FaultStrike::failure();
        return nullptr;
    }
    return next<dirent *(DIR *)>("readdir")(listing);
}
SAME_AS(readdir) dirent64 *readdir64(DIR *listing);

EXPORTED int stat(const char *path, struct stat *info)
{
    return onPath(
        FaultCall::Stat, AT_FDCWD, path, [&] { return next<int(const char *, struct stat *)>("stat")(path, info); });
}
EXPORTED int lstat(const char *path, struct stat *info)
{
    return onPath(
        FaultCall::Stat, AT_FDCWD, path, [&] { return next<int(const char *, struct stat *)>("lstat")(path, info); });
}
EXPORTED int fstat(int descriptor, struct stat *info)
{
    return onDescriptor(
        FaultCall::Stat, descriptor, [&] { return next<int(int, struct stat *)>("fstat")(descriptor, info); });
}
EXPORTED int fstatat(int folder, const char *path, struct stat *info, int flags)
{
    return onPath(FaultCall::Stat, folder, path,
        [&] { return next<int(int, const char *, struct stat *, int)>("fstatat")(folder, path, info, flags); });
}
SAME_AS(stat) int stat64(const char *path, struct stat64 *info);
SAME_AS(lstat) int lstat64(const char *path, struct stat64 *info);
SAME_AS(fstat) int fstat64(int descriptor, struct stat64 *info);
SAME_AS(fstatat) int fstatat64(int folder, const char *path, struct stat64 *info, int flags);
EXPORTED int statx(int folder, const char *path, int flags, unsigned mask, struct statx *info)
{
    return onPath(FaultCall::Stat, folder, path, [&] {
        return next<int(int, const char *, int, unsigned, struct statx *)>("statx")(folder, path, flags, mask, info);
    });
}
EXPORTED int access(const char *path, int mode)
{
    return onPath(FaultCall::Stat, AT_FDCWD, path, [&] { return next<int(const char *, int)>("access")(path, mode); });
}
EXPORTED int faccessat(int folder, const char *path, int mode, int flags)
{
    return onPath(FaultCall::Stat, folder, path,
        [&] { return next<int(int, const char *, int, int)>("faccessat")(folder, path, mode, flags); });
}

EXPORTED int chmod(const char *path, mode_t mode)
{
    return onPath(
        FaultCall::Chmod, AT_FDCWD, path, [&] { return next<int(const char *, mode_t)>("chmod")(path, mode); });
}
EXPORTED int fchmod(int descriptor, mode_t mode)
{
    return onDescriptor(
        FaultCall::Chmod, descriptor, [&] { return next<int(int, mode_t)>("fchmod")(descriptor, mode); });
}
EXPORTED int fchmodat(int folder, const char *path, mode_t mode, int flags)
{
    return onPath(FaultCall::Chmod, folder, path,
        [&] { return next<int(int, const char *, mode_t, int)>("fchmodat")(folder, path, mode, flags); });
}
EXPORTED int flock(int descriptor, int operation)
{
    return onDescriptor(
        FaultCall::Lock, descriptor, [&] { return next<int(int, int)>("flock")(descriptor, operation); });
}

} // extern "C"
// NOLINTEND
