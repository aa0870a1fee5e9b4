#include "tests/support/SmallDisk.h"

#ifdef Q_OS_WIN

struct SmallDisk::Former
{
};

bool SmallDisk::isPossible()
{
    return false;
}

SmallDisk::SmallDisk(quint64 /*bytes*/)
{
    qFatal("Windows bounds the size of no file");
}

SmallDisk::~SmallDisk() = default;

#else

#include <csignal>
#include <sys/resource.h>

struct SmallDisk::Former
{
    rlimit limit{};
};

bool SmallDisk::isPossible()
{
    return true;
}

SmallDisk::SmallDisk(quint64 bytes) : m_former(std::make_unique<Former>())
{
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &m_former->limit);
    const rlimit small{rlim_t(bytes), m_former->limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
}

SmallDisk::~SmallDisk()
{
    setrlimit(RLIMIT_FSIZE, &m_former->limit);
    std::signal(SIGXFSZ, SIG_DFL);
}

#endif
