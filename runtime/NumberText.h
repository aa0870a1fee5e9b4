#pragma once

#include "runtime/Result.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

/// The number that the whole of text is, as the platform's automation library converts a text:
/// spaces around, one sign before or after, thousands separators after a digit, "(5)" for -5, a currency sign,
/// an exponent with "e", "&H1A" and "&O17". `std::nullopt` if the text is not a number or is out of a double's range.
std::optional<double> numericValue(QStringView text);

/// Whether numericValue() finds a number; the platform's general numeric test.
bool isNumeric(QStringView text);

/// The number that text begins with, after spaces: sign, digits, one ".", exponent; what follows is ignored.
/// A text without a number gives 0, one that a double cannot hold an infinity.
double leadingNumber(QStringView text);
double leadingNumber(QByteArrayView ascii);

/// The part of text that leadingNumber() takes; empty when text does not begin with a number.
QStringView leadingNumberText(QStringView text);

/// Rounds halves to even. Overflow outside -32768 to 32767.
Result<qint16> toInt16(double value);

/// The whole of text as a 16-bit integer: TypeMismatch when it is not numeric, else as for a number.
/// "&H8000" to "&HFFFF" give the negative numbers of those 16 bits.
Result<qint16> toInt16(QStringView text);

/// The leading hexadecimal digits of text, after spaces, as the bits of a 16-bit integer ("FFFF" gives -1, "12G4"
/// gives 0x12, none gives 0). Overflow for a value above FFFF.
Result<qint16> hexToInt16(QStringView text);

/// "True" and "False" in any case, else a number (0 is false). TypeMismatch for any other text, the empty one included.
Result<bool> toBoolean(QStringView text);

/// The shortest text of at most seven significant digits with "." as decimal point; 1E+07 style from ten millions and
/// below 0.0001.
QString singleText(float value);

/// As singleText(), with fifteen significant digits: 1E+15 style from 10^15.
QString doubleText(double value);

/// The most characters that a number's text takes.
inline constexpr int numberTextLength = 32;

/// singleText() into a buffer of numberTextLength characters; returns the end of what was written.
char *writeSingle(float value, char *out);
