#pragma once

#include "document/PrGrid.h"
#include "runtime/RunTimeError.h"

#include <QString>

#include <functional>
#include <optional>

/// The number in text as files store it: "." as decimal point whatever the system uses, shortest form ("007" gives
/// "7"). A text that does not begin with a number gives "0"; there is no failure.
QString NormalizeNumText(QStringView text);

/// A bound as files store it: at most seven significant digits, "." as decimal point.
QString SingleToText(float value);

/// Fills the ranges of PrRecords[rowIndex] (index from 0) from a setting-range text ("0-400,9999", "5-") and returns
/// their number. An empty text gives 0 and leaves the ranges alone.
qint16 ParseSettingRange(int rowIndex, QStringView text);

/// The setting-range text of PrRecords[rowIndex] (index from 0).
QString FormatSettingRange(int rowIndex);

/// What stopped a collection, and at which grid row (from 1).
struct CollectFailure
{
    RunTimeError error;
    int row;
};

/// Rebuilds PrRecords from the grid's rows; afterRow is called after each. Nothing is returned when all went well.
std::optional<CollectFailure> CollectPrRecords(const PrGrid &grid, const std::function<void()> &afterRow);
