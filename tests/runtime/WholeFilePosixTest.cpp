#include "runtime/SystemFile.h"
#include "runtime/WholeFile.h"
#include "tests/runtime/WholeFileFixture.h"
#include "tests/support/QtPrinters.h"

#include <cerrno>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// The program's system calls come here first. While interruptions are left, each call is interrupted by a signal.
namespace {

int interruptions = 0;
int interrupted = 0;

bool interrupts()
{
    if (interruptions == 0) {
        return false;
    }
    --interruptions;
    ++interrupted;
    errno = EINTR;
    return true;
}

template <typename Function>
Function *systemsOwn(Function * /*like*/, const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

ssize_t read(int file, void *bytes, size_t capacity)
{
    static auto *const own = systemsOwn(&::read, "read");
    return interrupts() ? -1 : own(file, bytes, capacity);
}

ssize_t write(int file, const void *bytes, size_t count)
{
    static auto *const own = systemsOwn(&::write, "write");
    return interrupts() ? -1 : own(file, bytes, count);
}

int fsync(int file)
{
    static auto *const own = systemsOwn(&::fsync, "fsync");
    return interrupts() ? -1 : own(file);
}

int open(const char *name, int flags, ...)
{
    using Open = int(const char *, int, mode_t);
    static auto *const own = reinterpret_cast<Open *>(::dlsym(RTLD_NEXT, "open"));
    return interrupts() ? -1 : own(name, flags, 0600);
}

} // extern "C"

TEST_F(WholeFile, isReadAndWrittenThoughSignalsInterruptEveryCall)
{
    for (int calls = 1; calls <= 12; ++calls) { // each call in turn is interrupted, the first one several times
        interrupted = 0;
        interruptions = calls;
        const auto written = writeWholeFile(path(u"a.inv"_s), "content");
        interruptions = 0;
        ASSERT_TRUE(written);
        ASSERT_EQ(interrupted, calls);
        interruptions = calls;
        const auto bytes = readWholeFile(path(u"a.inv"_s));
        interruptions = 0;
        ASSERT_EQ(bytes, QByteArray("content"));
    }
}

TEST_F(WholeFile, thatTheSystemMakesUpIsReadThoughItSaysThatItHasNoBytes)
{
    const auto bytes = readWholeFile(u"/proc/self/status"_s);
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(bytes->startsWith("Name:"));
    EXPECT_EQ(readWholeFile(u"/proc/self/status"_s, 20).failure().code, FailureCode::FileTooLarge);
}

namespace {

/// What a name may be, and what is said of it when it is read.
struct Obstacle
{
    const char *name;
    Failure failure;
    void (*make)(const QByteArray &path);
};

void PrintTo(const Obstacle &obstacle, std::ostream *out)
{
    *out << obstacle.name;
}

const Failure notAFile{.code = FailureCode::NotAFile, .systemError = EINVAL};

void makeSocket(const QByteArray &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(size_t(path.size()), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    ::close(socket);
}

const Obstacle obstacles[] = {
    {"Nothing", Failure::system(ENOENT), [](const QByteArray &) {}},
    {"AFolder", Failure::system(EISDIR), [](const QByteArray &path) { EXPECT_EQ(::mkdir(path, 0700), 0); }},
    {"APipe", notAFile, [](const QByteArray &path) { EXPECT_EQ(::mkfifo(path, 0600), 0); }},
    {"ASocket", notAFile, makeSocket},
    {"ADevice", notAFile, [](const QByteArray &path) { EXPECT_EQ(::symlink("/dev/zero", path), 0); }},
    {"ALinkIntoNowhere", Failure::system(ENOENT),
        [](const QByteArray &path) { EXPECT_EQ(::symlink("/nowhere/a", path), 0); }},
    {"ALinkToItself", Failure::system(ELOOP), [](const QByteArray &path) { EXPECT_EQ(::symlink(path, path), 0); }},
};

class ReadingAnObstacle : public WholeFile, public testing::WithParamInterface<Obstacle>
{
};

} // namespace

TEST_P(ReadingAnObstacle, failsWithTheTrueReason)
{
    GetParam().make(QFile::encodeName(path(u"a.inv"_s)));
    EXPECT_EQ(readWholeFile(path(u"a.inv"_s)), GetParam().failure);
}

INSTANTIATE_TEST_SUITE_P(Obstacles, ReadingAnObstacle, testing::ValuesIn(obstacles),
    [](const auto &test) { return std::string(test.param.name); });

TEST_F(WholeFile, isNotWaitedForIfItIsAPipeOrASocket)
{
    const QByteArray pipe = QFile::encodeName(path(u"pipe"_s));
    ASSERT_EQ(::mkfifo(pipe, 0600), 0);
    makeSocket(QFile::encodeName(path(u"socket"_s)));
    EXPECT_EQ(writeWholeFile(path(u"pipe"_s), "content"), notAFile);
    EXPECT_EQ(writeWholeFile(path(u"socket"_s), "content"), notAFile);
}

TEST_F(WholeFile, ofALongNameOrWithoutAHandleFailsWithTheSystemsReason)
{
    EXPECT_EQ(readWholeFile(path(QString(300, u'a'))), Failure::system(ENAMETOOLONG));
    EXPECT_EQ(writeWholeFile(path(QString(300, u'a')), "content"), Failure::system(ENAMETOOLONG));
    const QString file = put("content");
    rlimit former{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &former), 0);
    const rlimit none{0, former.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const auto bytes = readWholeFile(file);
    const auto written = writeWholeFile(file, "other");
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &former), 0);
    EXPECT_EQ(bytes, Failure::system(EMFILE));
    EXPECT_EQ(written, Failure::system(EMFILE));
    EXPECT_EQ(bytes.failure().reason(), u"Too many open files"_s);
    EXPECT_EQ(readWholeFile(file), QByteArray("content"));
}

TEST(SystemFailure, hasTheReasonOfTheLastCall)
{
    errno = EACCES;
    EXPECT_EQ(Failure::lastSystemCall().reason(), u"Permission denied"_s);
    errno = 0;
    EXPECT_EQ(Failure::lastSystemCall(), Failure::system(EIO)); // never "Success"
    EXPECT_EQ(Failure::system(ENOENT).reason(), u"No such file or directory"_s);
    EXPECT_EQ(Failure::system(EBUSY).reason(), u"Device or resource busy"_s);
}
