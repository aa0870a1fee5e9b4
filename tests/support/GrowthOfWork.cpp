#include "tests/support/GrowthOfWork.h"

#include <QtGlobal>

#include <algorithm>
#include <ctime>
#include <limits>

namespace {

double seconds()
{
#ifdef Q_OS_WIN
    constexpr clockid_t clock = CLOCK_MONOTONIC; // the process's own goes in steps of many milliseconds
#else
    constexpr clockid_t clock = CLOCK_PROCESS_CPUTIME_ID;
#endif
    timespec time{};
    ::clock_gettime(clock, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

/// The least of several runs: whatever comes between only adds.
double leastSeconds(const std::function<void(int)> &work, int size)
{
    constexpr int runs = 5;
    double least = std::numeric_limits<double>::infinity();
    for (int run = 0; run < runs; ++run) {
        const double begun = seconds();
        work(size);
        least = std::min(least, seconds() - begun);
    }
    return least;
}

} // namespace

double growthOfWork(const std::function<void(int)> &work, int size, int factor)
{
    return leastSeconds(work, size * factor) / leastSeconds(work, size);
}
