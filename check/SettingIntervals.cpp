#include "check/SettingIntervals.h"

#include <algorithm>
#include <limits>

namespace {

constexpr float singleValue = 0;
constexpr float openEnd = -1;

} // namespace

bool isReversed(const SettingRange &range)
{
    return range.upper < range.lower && range.upper != singleValue && range.upper != openEnd;
}

SettingInterval settingInterval(const SettingRange &range)
{
    if (range.upper > range.lower) {
        return {range.lower, range.upper};
    }
    return {range.lower, range.upper == openEnd ? std::numeric_limits<double>::infinity() : range.lower};
}

QList<SettingInterval> settingIntervals(const QList<SettingRange> &ranges)
{
    QList<SettingInterval> intervals;
    intervals.reserve(ranges.size());
    std::ranges::transform(ranges, std::back_inserter(intervals), settingInterval);
    if (intervals.size() > 1) {
        std::ranges::stable_sort(intervals, {}, &SettingInterval::lowest);
    }
    return intervals;
}

bool containsValue(std::span<const SettingInterval> intervals, double value)
{
    return std::ranges::any_of(intervals, [value](const SettingInterval &own) { return own.contains(value); });
}

bool meets(std::span<const SettingInterval> intervals, const SettingInterval &other)
{
    return std::ranges::any_of(intervals,
        [&other](const SettingInterval &own) { return own.lowest <= other.highest && other.lowest <= own.highest; });
}

bool isCoveredBy(std::span<const SettingInterval> intervals, const SettingInterval &other)
{
    return std::ranges::all_of(intervals,
        [&other](const SettingInterval &own) { return other.lowest <= own.lowest && own.highest <= other.highest; });
}
