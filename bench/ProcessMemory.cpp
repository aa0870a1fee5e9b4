#include "bench/ProcessMemory.h"

#include <QFile>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QFile::ReadOnly)) {
        qFatal("the memory in use cannot be read");
    }
    return file.readAll();
}

} // namespace

qint64 residentBytes()
{
    return contentOf(u"/proc/self/statm"_s).split(' ').at(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

qint64 peakBytes()
{
    constexpr qint64 kilobyte = 1024;
    for (const QByteArray &line : contentOf(u"/proc/self/status"_s).split('\n')) {
        if (line.startsWith("VmHWM:")) {
            return line.simplified().split(' ').at(1).toLongLong() * kilobyte;
        }
    }
    qFatal("the greatest memory is not told");
}

void forgetPeak()
{
    QFile file(u"/proc/self/clear_refs"_s);
    if (!file.open(QFile::WriteOnly) || file.write("5") != 1) {
        qFatal("the greatest memory cannot be forgotten");
    }
}
