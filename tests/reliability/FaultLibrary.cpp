// A library that is preloaded: it stands between a program and the system's calls on files, and makes one of them fail,
// stop halfway or end the process. See FaultPlan.h.

#include "tests/reliability/FaultPlan.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

FaultPlan *plan = nullptr;
/// The listing that is to break off, and how many names of it were given.
std::atomic<DIR *> brokenListing = nullptr;
std::atomic<int> listedNames = 0;

using Path = std::array<char, FaultPlan::longestPath>;

/// The system's own form of the call that is being stood in for.
template <typename Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

bool isBelow(std::string_view path, std::string_view root)
{
    return root.ends_with('/') ? path.starts_with(root) : !root.empty() && path == root;
}

/// The index of the root that a path is in; the count of roots when it is in none.
std::size_t rootOf(std::string_view path)
{
    const auto found =
        std::ranges::find_if(plan->roots, [path](const auto &root) { return isBelow(path, root.data()); });
    return static_cast<std::size_t>(found - plan->roots.begin());
}

bool isWatched(std::string_view path)
{
    return rootOf(path) < FaultPlan::mostRoots;
}

Path pathOf(int descriptor)
{
    Path link{};
    Path path{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
    const ssize_t length = ::readlink(link.data(), path.data(), path.size() - 1);
    path[static_cast<std::size_t>(std::max<ssize_t>(length, 0))] = '\0';
    return path;
}

Path pathOf(int folder, const char *name)
{
    Path path{};
    if (!name || *name == '\0') {
        return folder >= 0 ? pathOf(folder) : path;
    }
    if (*name == '/') {
        std::snprintf(path.data(), path.size(), "%s", name);
        return path;
    }
    Path start{};
    if (folder == AT_FDCWD) {
        if (!::getcwd(start.data(), start.size())) {
            return path;
        }
    } else {
        start = pathOf(folder);
    }
    std::snprintf(path.data(), path.size(), "%s/%s", start.data(), name);
    return path;
}

/// What is to be done with one call. Ends the process after it where that is the plan.
class Strike
{
public:
    Strike(FaultCall call, const Path &path)
    {
        const std::size_t root = rootOf(path.data());
        if (root == FaultPlan::mostRoots) {
            return;
        }
        ++plan->rootCounts.at(root);
        const int number = ++plan->counts.at(static_cast<std::size_t>(call));
        const bool follows = plan->fault.act == FaultAct::FailFromThere || plan->fault.act == FaultAct::ShortThenFail;
        const bool isMeant = plan->fault.act != FaultAct::None && call == plan->fault.call
            && (number == plan->fault.number || (follows && number > plan->fault.number));
        if (plan->trace) {
            std::fprintf(stderr, "%s %d %s%s\n", nameOf(call), number, path.data(), isMeant ? "  <-- struck" : "");
        }
        if (isMeant) {
            strike(number, path);
        }
    }
    ~Strike()
    {
        if (m_kills) {
            ::raise(SIGKILL);
        }
    }
    Strike(const Strike &) = delete;
    Strike &operator=(const Strike &) = delete;

    bool fails() const { return m_fails; }
    bool isShort() const { return m_isShort; }
    /// Sets errno, and returns what a call returns that has failed.
    static int failure()
    {
        errno = plan->fault.error;
        return -1;
    }

private:
    void strike(int number, const Path &path)
    {
        const bool isFirst = number == plan->fault.number;
        if (isFirst) {
            plan->struckAt = path;
            plan->struck = true;
        }
        switch (plan->fault.act) {
        case FaultAct::None:
            break;
        case FaultAct::Fail:
        case FaultAct::FailFromThere:
            m_fails = true;
            break;
        case FaultAct::Short:
            m_isShort = true;
            break;
        case FaultAct::ShortThenFail:
            m_isShort = isFirst;
            m_fails = !isFirst;
            break;
        case FaultAct::KillBefore:
            ::raise(SIGKILL);
            break;
        case FaultAct::KillAfter:
            m_kills = true;
            break;
        }
    }

    bool m_fails = false;
    bool m_isShort = false;
    bool m_kills = false;
};

bool isArmed()
{
    return plan && plan->armed;
}

/// A call on a path. The last argument is the call itself.
template <typename Call>
auto onPath(FaultCall kind, int folder, const char *name, const Call &call) -> decltype(call())
{
    if (!isArmed()) {
        return call();
    }
    const Strike strike(kind, pathOf(folder, name));
    return strike.fails() ? static_cast<decltype(call())>(Strike::failure()) : call();
}

template <typename Call>
auto onDescriptor(FaultCall kind, int descriptor, const Call &call) -> decltype(call())
{
    return onPath(kind, descriptor, "", call);
}

/// A call that moves bytes. The last argument moves that many.
template <typename Call>
ssize_t moveBytes(FaultCall kind, int descriptor, std::size_t size, const Call &call)
{
    if (!isArmed()) {
        return call(size);
    }
    const Strike strike(kind, pathOf(descriptor));
    if (strike.fails()) {
        return Strike::failure();
    }
    return call(strike.isShort() && size > 1 ? size / 2 : size);
}

int renameBetween(int from, const char *name, int to, const char *newName, const auto &call)
{
    if (!isArmed()) {
        return call();
    }
    const Path path = pathOf(from, name);
    const Strike strike(FaultCall::Rename, isWatched(path.data()) ? path : pathOf(to, newName));
    return strike.fails() ? Strike::failure() : call();
}

int openFile(const char *function, int folder, const char *name, int flags, mode_t mode)
{
    return onPath(FaultCall::Open, folder, name,
        [&] { return next<int(int, const char *, int, ...)>(function)(folder, name, flags, mode); });
}

FILE *openStream(const char *function, const char *name, const char *mode)
{
    if (isArmed()) {
        const Strike strike(FaultCall::Open, pathOf(AT_FDCWD, name));
        if (strike.fails()) {
            Strike::failure();
            return nullptr;
        }
    }
    return next<FILE *(const char *, const char *)>(function)(name, mode);
}

template <typename Entry>
Entry *nextName(const char *function, DIR *folder)
{
    if (folder && folder == brokenListing && ++listedNames > 3) { // ".", ".." and one
        errno = plan->fault.error;
        return nullptr;
    }
    return next<Entry *(DIR *)>(function)(folder);
}

template <typename Info>
int statPath(const char *function, const char *name, Info *info)
{
    return onPath(
        FaultCall::Stat, AT_FDCWD, name, [&] { return next<int(const char *, Info *)>(function)(name, info); });
}

template <typename Info>
int statDescriptor(const char *function, int descriptor, Info *info)
{
    return onDescriptor(
        FaultCall::Stat, descriptor, [&] { return next<int(int, Info *)>(function)(descriptor, info); });
}

template <typename Info>
int statBeside(const char *function, int folder, const char *name, Info *info, int flags)
{
    return onPath(FaultCall::Stat, folder, name,
        [&] { return next<int(int, const char *, Info *, int)>(function)(folder, name, info, flags); });
}

/// The third argument of open() and its like; it is there when a file may be made.
mode_t modeOf(int flags, va_list arguments)
{
    const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return makes ? static_cast<mode_t>(va_arg(arguments, unsigned)) : 0;
}

} // namespace

// NOLINTBEGIN: the names and arguments are the system's
extern "C" {

#define EXPORTED __attribute__((visibility("default")))

EXPORTED void tabrixSetFaultPlan(FaultPlan *newPlan)
{
    plan = newPlan;
}

#define OPEN(name, function)                                                                                          \
    EXPORTED int name(const char *path, int flags, ...)                                                               \
    {                                                                                                                 \
        va_list arguments;                                                                                            \
        va_start(arguments, flags);                                                                                   \
        const mode_t mode = modeOf(flags, arguments);                                                                 \
        va_end(arguments);                                                                                            \
        return openFile(function, AT_FDCWD, path, flags, mode);                                                       \
    }
OPEN(open, "openat")
OPEN(open64, "openat64")
#undef OPEN

#define OPENAT(name)                                                                                                  \
    EXPORTED int name(int folder, const char *path, int flags, ...)                                                   \
    {                                                                                                                 \
        va_list arguments;                                                                                            \
        va_start(arguments, flags);                                                                                   \
        const mode_t mode = modeOf(flags, arguments);                                                                 \
        va_end(arguments);                                                                                            \
        return openFile(#name, folder, path, flags, mode);                                                            \
    }
OPENAT(openat)
OPENAT(openat64)
#undef OPENAT

EXPORTED int __open_2(const char *path, int flags)
{
    return openFile("openat", AT_FDCWD, path, flags, 0);
}
EXPORTED int __open64_2(const char *path, int flags)
{
    return openFile("openat64", AT_FDCWD, path, flags, 0);
}
EXPORTED int __openat_2(int folder, const char *path, int flags)
{
    return openFile("openat", folder, path, flags, 0);
}
EXPORTED int __openat64_2(int folder, const char *path, int flags)
{
    return openFile("openat64", folder, path, flags, 0);
}
EXPORTED int creat(const char *path, mode_t mode)
{
    return openFile("openat", AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode);
}
EXPORTED int creat64(const char *path, mode_t mode)
{
    return openFile("openat64", AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode);
}
EXPORTED FILE *fopen(const char *path, const char *mode)
{
    return openStream("fopen", path, mode);
}
EXPORTED FILE *fopen64(const char *path, const char *mode)
{
    return openStream("fopen64", path, mode);
}

EXPORTED ssize_t read(int descriptor, void *bytes, size_t size)
{
    return moveBytes(FaultCall::Read, descriptor, size,
        [&](size_t part) { return next<ssize_t(int, void *, size_t)>("read")(descriptor, bytes, part); });
}
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

#define PREAD(name, Offset)                                                                                           \
    EXPORTED ssize_t name(int descriptor, void *bytes, size_t size, Offset place)                                     \
    {                                                                                                                 \
        return moveBytes(FaultCall::Read, descriptor, size, [&](size_t part) {                                        \
            return next<ssize_t(int, void *, size_t, Offset)>(#name)(descriptor, bytes, part, place);                 \
        });                                                                                                           \
    }
PREAD(pread, off_t)
PREAD(pread64, off64_t)
#undef PREAD

#define PWRITE(name, Offset)                                                                                          \
    EXPORTED ssize_t name(int descriptor, const void *bytes, size_t size, Offset place)                               \
    {                                                                                                                 \
        return moveBytes(FaultCall::Write, descriptor, size, [&](size_t part) {                                       \
            return next<ssize_t(int, const void *, size_t, Offset)>(#name)(descriptor, bytes, part, place);           \
        });                                                                                                           \
    }
PWRITE(pwrite, off_t)
PWRITE(pwrite64, off64_t)
#undef PWRITE

#define SENDFILE(name, Offset)                                                                                        \
    EXPORTED ssize_t name(int out, int in, Offset *place, size_t size)                                                \
    {                                                                                                                 \
        return moveBytes(FaultCall::Write, out, size,                                                                 \
            [&](size_t part) { return next<ssize_t(int, int, Offset *, size_t)>(#name)(out, in, place, part); });     \
    }
SENDFILE(sendfile, off_t)
SENDFILE(sendfile64, off64_t)
#undef SENDFILE

#define TRUNCATE(name, Offset)                                                                                        \
    EXPORTED int f##name(int descriptor, Offset size)                                                                 \
    {                                                                                                                 \
        return onDescriptor(                                                                                          \
            FaultCall::Write, descriptor, [&] { return next<int(int, Offset)>("f" #name)(descriptor, size); });       \
    }                                                                                                                 \
    EXPORTED int name(const char *path, Offset size)                                                                  \
    {                                                                                                                 \
        return onPath(FaultCall::Write, AT_FDCWD, path,                                                               \
            [&] { return next<int(const char *, Offset)>(#name)(path, size); });                                      \
    }
TRUNCATE(truncate, off_t)
TRUNCATE(truncate64, off64_t)
#undef TRUNCATE

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
    const Strike strike(FaultCall::Close, pathOf(descriptor));
    const int result = closeIt();
    return strike.fails() ? Strike::failure() : result;
}

EXPORTED int rename(const char *from, const char *to)
{
    return renameBetween(AT_FDCWD, from, AT_FDCWD, to,
        [&] { return next<int(const char *, const char *)>("rename")(from, to); });
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
    return renameBetween(AT_FDCWD, from, AT_FDCWD, to,
        [&] { return next<int(const char *, const char *)>("link")(from, to); });
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
    const auto openIt = [&] { return next<DIR *(const char *)>("opendir")(path); };
    if (!isArmed()) {
        return openIt();
    }
    const Strike strike(FaultCall::Opendir, pathOf(AT_FDCWD, path));
    if (strike.fails()) {
        Strike::failure();
        return nullptr;
    }
    DIR *listing = openIt();
    if (strike.isShort()) {
        listedNames = 0;
        brokenListing = listing;
    }
    return listing;
}
EXPORTED int closedir(DIR *listing)
{
    DIR *closed = listing;
    brokenListing.compare_exchange_strong(closed, nullptr);
    return next<int(DIR *)>("closedir")(listing);
}
EXPORTED dirent *readdir(DIR *listing)
{
    return nextName<dirent>("readdir", listing);
}
EXPORTED dirent64 *readdir64(DIR *listing)
{
    return nextName<dirent64>("readdir64", listing);
}

EXPORTED int stat(const char *path, struct stat *info)
{
    return statPath("stat", path, info);
}
EXPORTED int stat64(const char *path, struct stat64 *info)
{
    return statPath("stat64", path, info);
}
EXPORTED int lstat(const char *path, struct stat *info)
{
    return statPath("lstat", path, info);
}
EXPORTED int lstat64(const char *path, struct stat64 *info)
{
    return statPath("lstat64", path, info);
}
EXPORTED int fstat(int descriptor, struct stat *info)
{
    return statDescriptor("fstat", descriptor, info);
}
EXPORTED int fstat64(int descriptor, struct stat64 *info)
{
    return statDescriptor("fstat64", descriptor, info);
}
EXPORTED int fstatat(int folder, const char *path, struct stat *info, int flags)
{
    return statBeside("fstatat", folder, path, info, flags);
}
EXPORTED int fstatat64(int folder, const char *path, struct stat64 *info, int flags)
{
    return statBeside("fstatat64", folder, path, info, flags);
}
EXPORTED int statx(int folder, const char *path, int flags, unsigned mask, struct statx *info)
{
    return onPath(FaultCall::Stat, folder, path, [&] {
        return next<int(int, const char *, int, unsigned, struct statx *)>("statx")(folder, path, flags, mask, info);
    });
}
EXPORTED int access(const char *path, int mode)
{
    return onPath(
        FaultCall::Stat, AT_FDCWD, path, [&] { return next<int(const char *, int)>("access")(path, mode); });
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
    return onDescriptor(FaultCall::Chmod, descriptor, [&] { return next<int(int, mode_t)>("fchmod")(descriptor, mode); });
}
EXPORTED int fchmodat(int folder, const char *path, mode_t mode, int flags)
{
    return onPath(FaultCall::Chmod, folder, path,
        [&] { return next<int(int, const char *, mode_t, int)>("fchmodat")(folder, path, mode, flags); });
}
EXPORTED int flock(int descriptor, int operation)
{
    return onDescriptor(FaultCall::Lock, descriptor, [&] { return next<int(int, int)>("flock")(descriptor, operation); });
}

} // extern "C"
// NOLINTEND
