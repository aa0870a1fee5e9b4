#include "desktop/MemoryStatus.h"

#include "runtime/WindowsApi.h"

#ifndef Q_OS_WIN
#include <unistd.h>
#endif

quint64 totalPhysicalMemory()
{
#ifdef Q_OS_WIN
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) ? status.ullTotalPhys : 0;
#else
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGESIZE);
    return pages > 0 && pageSize > 0 ? quint64(pages) * quint64(pageSize) : 0;
#endif
}
