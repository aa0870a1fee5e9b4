#include "tests/support/MemoryDisk.h"

#include <QFile>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool writeText(const QString &fileName, const QByteArray &text)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size();
}

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

bool MemoryDisk::prepare()
{
    return enterOwnMounts() && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool MemoryDisk::mount(const QString &folder, const QByteArray &options, const char *kind)
{
    return ::mount("none", QFile::encodeName(folder).constData(), kind, 0, options.constData()) == 0;
}

void MemoryDisk::fill(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        qFatal("the disk to be filled takes no file");
    }
    while (file.write(QByteArray(4096, 'x')) > 0) { }
}
