#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

/// The seconds of the processor that work takes; other processes' share of the machine does not count.
inline double secondsOf(const auto &work)
{
    const auto now = [] {
        constexpr double nanosecond = 1e-9;
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return double(time.tv_sec) + double(time.tv_nsec) * nanosecond;
    };
    const double begin = now();
    work();
    return now() - begin;
}

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}
