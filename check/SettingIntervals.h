#pragma once

#include "document/PrRecord.h"

#include <QList>

#include <span>

/// The values that one setting range permits.
struct SettingInterval
{
    double lowest;
    double highest; ///< infinity for a range without an upper bound

    bool contains(double value) const { return lowest <= value && value <= highest; }
    bool operator==(const SettingInterval &) const = default;
};

/// Whether the upper bound is below the lower one, and stands for neither a single value nor an open range.
bool isReversed(const SettingRange &range);

/// The values that a range permits. A reversed one counts as the single value of its lower bound, as it is shown.
SettingInterval settingInterval(const SettingRange &range);

/// The values that the ranges permit, in ascending order of their lowest.
QList<SettingInterval> settingIntervals(const QList<SettingRange> &ranges);

bool containsValue(std::span<const SettingInterval> intervals, double value);
/// Whether some value of the intervals is from lowest to highest.
bool meets(std::span<const SettingInterval> intervals, const SettingInterval &other);
/// Whether all values of the intervals are from lowest to highest.
bool isCoveredBy(std::span<const SettingInterval> intervals, const SettingInterval &other);
