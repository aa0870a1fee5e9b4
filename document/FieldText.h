#pragma once

#include "document/PrRecord.h"
#include "runtime/NumberText.h"

#include <QList>
#include <QString>

#include <span>

/// The number in text as files store it: "." as decimal point whatever the system uses, shortest form ("007" gives
/// "7"). A text that does not begin with a number gives "0"; a number too large for a double comes back as it is.
QString NormalizeNumText(QStringView text);

/// Whether text is seen at a glance to be what NormalizeNumText() makes of it; nearly every number is. A no decides
/// nothing.
bool isNormalizedNum(QStringView text);

/// A functional list code as shown: always four upper-case hexadecimal digits ("0005", "FFFF" for -1).
QString functionCodeText(qint16 code);
/// Writes the same to out; returns the position after it.
char16_t *writeFunctionCode(qint16 code, char16_t *out);

/// The low sixteen bits of a code as files store it, in decimal; they are what its four digits show.
qint16 storedFunctionCode(QStringView decimal);

/// A bound as files store it: at most seven significant digits, "." as decimal point.
QString SingleToText(float value);

/// The ranges of a setting-range text ("0-400,9999", "5-"); none for an empty one. Overflow when a bound is too large
/// for a single or when there are more than 32767 parts.
Result<QList<SettingRange>> rangesFromText(QStringView text);

/// The same into a list that is at hand, whose storage is used again.
Result<> parseRanges(QStringView text, QList<SettingRange> &ranges);

/// The setting-range text of ranges; its inverse, but for ranges whose upper bound is not above the lower one.
QString rangesToText(std::span<const SettingRange> ranges);
/// The setting-range text of a record: of as many ranges as it says and has.
QString settingRangeText(const PrRecord &record);
