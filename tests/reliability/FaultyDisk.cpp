#include "tests/reliability/FaultyDisk.h"

#include <QFile>

#include <csignal>
#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto smallPlace = "/mnt"_L1;
constexpr auto readOnlyPlace = "/media"_L1;
bool hasSmallDisk = false;
bool hasReadOnlyDisk = false;

bool writeText(const QString &fileName, const QByteArray &text)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size();
}

/// Gives this process mounts of its own, as root or, where that is allowed, as root of a user space of its own.
bool enterOwnMounts()
{
    if (::unshare(CLONE_NEWNS) == 0) {
        return true;
    }
    const QByteArray user = QByteArray::number(::geteuid());
    const QByteArray group = QByteArray::number(::getegid());
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        return false;
    }
    return writeText(u"/proc/self/setgroups"_s, "deny") && writeText(u"/proc/self/uid_map"_s, user + ' ' + user + " 1")
        && writeText(u"/proc/self/gid_map"_s, group + ' ' + group + " 1");
}

bool mountMemory(const char *place, const char *options)
{
    return ::mount("none", place, "tmpfs", 0, options) == 0;
}

void mountDisks(const QByteArray &content)
{
    if (!enterOwnMounts() || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
        return;
    }
    hasSmallDisk = mountMemory(smallPlace.data(), "size=64k,mode=0777");
    hasReadOnlyDisk = mountMemory(readOnlyPlace.data(), "size=64k,mode=0777")
        && writeText(readOnlyPlace + u"/a.inv"_s, content)
        && ::mount("none", readOnlyPlace.data(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

void giveUpPrivileges()
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct none[2]{};
    if (::syscall(SYS_capset, &header, none) != 0) {
        qFatal("the privileges of root cannot be given up");
    }
}

} // namespace

void FaultyDisk::setUp(const QByteArray &readOnlyContent)
{
    mountDisks(readOnlyContent);
    giveUpPrivileges();
}

QString FaultyDisk::smallDisk()
{
    return hasSmallDisk ? smallPlace.toString() : QString();
}

QString FaultyDisk::readOnlyDisk()
{
    return hasReadOnlyDisk ? readOnlyPlace.toString() : QString();
}

FaultyDisk::Filling::Filling()
{
    QFile filler(smallDisk() + u"/filler"_s);
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        qFatal("the small disk takes no file");
    }
    while (filler.write(QByteArray(4096, 'x')) > 0) { }
}

FaultyDisk::Filling::~Filling()
{
    QFile::remove(smallDisk() + u"/filler"_s);
}

FaultyDisk::SizeLimit::SizeLimit(quint64 bytes)
{
    std::signal(SIGXFSZ, SIG_IGN); // the write fails instead
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    m_before = limit.rlim_cur;
    limit.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

FaultyDisk::SizeLimit::~SizeLimit()
{
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = m_before;
    ::setrlimit(RLIMIT_FSIZE, &limit);
}
