#include "tests/reliability/FaultyDisk.h"

#include "tests/support/MemoryDisk.h"

#include <QFile>

#include <csignal>
#include <linux/capability.h>
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

void mountDisks(const QByteArray &content)
{
    if (!MemoryDisk::prepare()) {
        return;
    }
    hasSmallDisk = MemoryDisk::mount(smallPlace, "size=64k,mode=0777");
    hasReadOnlyDisk = MemoryDisk::mount(readOnlyPlace, "size=64k,mode=0777")
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
    MemoryDisk::fill(smallDisk() + u"/filler"_s);
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
