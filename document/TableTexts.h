#pragma once

#include <QString>

// The routines by which texts go into the global tables and come out of them. Each is a rim around a conversion of
// values in FieldText.h or PrCondText.h, which knows no table.

/// Fills the ranges of PrRecords[rowIndex] (index from 0) from a setting-range text and returns their number. An empty
/// text, and one that overflows, gives 0 and leaves the ranges alone.
qint16 ParseSettingRange(int rowIndex, QStringView text);

/// The setting-range text of PrRecords[rowIndex] (index from 0).
QString FormatSettingRange(int rowIndex);

/// Puts the conditions of text into PrConditions from position 0, with one spare element after them, and returns their
/// number (32767 at most). A text of spaces gives 0 and leaves PrConditions alone.
qint16 ParsePrCondText(QStringView text);

/// The condition text of PrRecords[rowIndex] (index from 0); empty when it has no conditions.
QString FormatPrCondText(int rowIndex);
