#include "tests/support/GrowthOfWork.h"

#include <QtGlobal>

#include <algorithm>
#include <ctime>
#include <limits>

namespace {

/// That this program has computed so far.
double seconds()
{
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

#ifdef Q_OS_WIN

/// The clock goes in steps of many milliseconds: so many runs that these do not matter.
double secondsOf(const std::function<void(int)> &work, int size)
{
    constexpr double enough = 0.2;
    const double begun = seconds();
    double spent = 0;
    int runs = 0;
    for (; spent < enough; ++runs) {
        work(size);
        spent = seconds() - begun;
    }
    return spent / runs;
}

#else

/// The least of several runs: whatever comes between only adds.
double secondsOf(const std::function<void(int)> &work, int size)
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

#endif

} // namespace

double growthOfWork(const std::function<void(int)> &work, int size, int factor)
{
    return secondsOf(work, size * factor) / secondsOf(work, size);
}
