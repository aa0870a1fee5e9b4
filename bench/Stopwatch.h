#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

/// The seconds of the processor that work takes; other processes' share of the machine does not count.
inline double secondsOf(const auto &work)
{
    const std::clock_t begin = std::clock();
    work();
    return double(std::clock() - begin) / CLOCKS_PER_SEC;
}

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}
