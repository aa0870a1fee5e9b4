#pragma once

#include "document/PrRecord.h"

#include <QList>

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

/// The values that the ranges permit, in ascending order of their lowest. A reversed range counts as the single value
/// of its lower bound, as it is shown.
QList<SettingInterval> settingIntervals(const QList<SettingRange> &ranges);

bool containsValue(const QList<SettingInterval> &intervals, double value);
/// Whether some value of the intervals is from lowest to highest.
bool meets(const QList<SettingInterval> &intervals, const SettingInterval &other);
/// Whether all values of the intervals are from lowest to highest.
bool isCoveredBy(const QList<SettingInterval> &intervals, const SettingInterval &other);
