#include "tests/longday/DayDisk.h"

#include <QFile>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool hasOwnMounts = false;

bool writeText(const QString &fileName, const QByteArray &text)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size();
}

/// As root or, where that is allowed, as root of a user space of its own.
bool enterOwnMounts()
{
    if (::unshare(CLONE_NEWNS) == 0) {
        return true;
    }
    const QByteArray user = QByteArray::number(::geteuid());
    const QByteArray group = QByteArray::number(::getegid());
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && writeText(u"/proc/self/setgroups"_s, "deny")
        && writeText(u"/proc/self/uid_map"_s, user + ' ' + user + " 1")
        && writeText(u"/proc/self/gid_map"_s, group + ' ' + group + " 1");
}

} // namespace

void DayDisk::prepare()
{
    hasOwnMounts = enterOwnMounts() && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

DayDisk::DayDisk(QString folder) : m_folder(std::move(folder))
{
    m_isMounted = hasOwnMounts
        && ::mount("none", QFile::encodeName(m_folder).constData(), "tmpfs", 0, "size=512k,mode=0700") == 0;
}

DayDisk::~DayDisk()
{
    if (m_isMounted) {
        ::umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
    }
}

void DayDisk::fill()
{
    QFile file(filler());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        qFatal("the small disk takes no file");
    }
    while (file.write(QByteArray(4096, 'x')) > 0) { }
    m_isFull = true;
}

void DayDisk::makeRoom()
{
    QFile::remove(filler());
    m_isFull = false;
}
