#include "tests/longday/DayDisk.h"

#include "tests/support/MemoryDisk.h"

#include <QFile>

#include <sys/mount.h>

using namespace Qt::StringLiterals;

namespace {

bool hasOwnMounts = false;

} // namespace

void DayDisk::prepare()
{
    hasOwnMounts = MemoryDisk::prepare();
}

DayDisk::DayDisk(QString folder) : m_folder(std::move(folder))
{
    m_isMounted = hasOwnMounts && MemoryDisk::mount(m_folder, "size=512k,mode=0700");
}

DayDisk::~DayDisk()
{
    if (m_isMounted) {
        ::umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
    }
}

void DayDisk::fill()
{
    MemoryDisk::fill(filler());
    m_isFull = true;
}

void DayDisk::makeRoom()
{
    QFile::remove(filler());
    m_isFull = false;
}
