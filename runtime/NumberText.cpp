#include "runtime/NumberText.h"

#include "runtime/DecimalValue.h"
#include "runtime/Digits.h"
#include "runtime/NumericParser.h"
#include "runtime/Spaces.h"

#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Reading

template <typename Char>
const Char *skipDigits(const Char *at, const Char *end)
{
    while (at != end && isDigit(*at)) {
        ++at;
    }
    return at;
}

/// The end of an exponent that begins at at; at itself when there is none.
template <typename Char>
const Char *skipExponent(const Char *at, const Char *end)
{
    if (at == end || (*at | 0x20) != Char('e')) {
        return at;
    }
    const Char *digits = at + 1;
    if (digits != end && (*digits == Char('+') || *digits == Char('-'))) {
        ++digits;
    }
    const Char *last = skipDigits(digits, end);
    return last == digits ? at : last;
}

/// Numbers of any length, by the exact conversion.
template <typename Char>
double longNumber(const Char *first, const Char *last)
{
    QVarLengthArray<char, 64> ascii;
    ascii.reserve(last - first);
    for (; first != last; ++first) {
        ascii.append(static_cast<char>(*first));
    }
    return decimalValue(QByteArrayView(ascii.data(), ascii.size()));
}

/// An unsigned number. Up to 15 digits without an exponent come from one exact division, which rounds as the exact
/// conversion does: nearly every number of a parameter file is of that kind.
template <typename Char>
double unsignedNumber(const Char *first, const Char *end)
{
    constexpr int exactDigits = 15;
    qint64 mantissa = 0;
    const Char *at = first;
    const Char *point = nullptr;
    for (; at != end && (isDigit(*at) || (*at == Char('.') && point == nullptr)); ++at) {
        if (*at == Char('.')) {
            point = at;
        } else if (at - first <= exactDigits) {
            mantissa = mantissa * 10 + (*at - Char('0'));
        }
    }
    const auto digits = at - first - (point != nullptr ? 1 : 0);
    if (digits == 0) {
        return 0;
    }
    const Char *last = skipExponent(at, end);
    if (last != at || digits > exactDigits) {
        return longNumber(first, last);
    }
    return point == nullptr ? double(mantissa) : double(mantissa) / exactPowersOfTen[at - point - 1];
}

template <typename Char>
double leadingNumberOf(const Char *at, const Char *end)
{
    while (at != end && isNumberSpace(static_cast<std::make_unsigned_t<Char>>(*at))) {
        ++at;
    }
    if (at == end) {
        return 0;
    }
    const bool negative = *at == Char('-');
    if (negative || *at == Char('+')) {
        ++at;
    }
    const double value = unsignedNumber(at, end);
    return negative ? -value : value;
}

int hexDigit(char16_t character)
{
    if (isDigit(character)) {
        return character - u'0';
    }
    const char16_t lower = character | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

// Writing

constexpr int singleDigits = 7;
constexpr int doubleDigits = 15;

/// A number's significant digits, rounded and without trailing zeros, and the power of ten of the first one.
struct RoundedDigits
{
    char digits[doubleDigits + 1];
    int count;
    int exponent;
};

/// Adds one unit to the last of the digits; all nines become a single 1 of the next power.
void roundUp(RoundedDigits &number)
{
    int last = number.count - 1;
    while (last >= 0 && number.digits[last] == '9') {
        number.digits[last--] = '0';
    }
    if (last >= 0) {
        ++number.digits[last];
        return;
    }
    number.digits[0] = '1';
    ++number.exponent;
}

/// value > 0. An exact half is rounded away from zero: two dozen digits more than are kept tell it from its neighbours.
RoundedDigits roundedDigits(double value, int count)
{
    char exact[64];
    const auto written = std::to_chars(exact, std::end(exact), value, std::chars_format::scientific, count + 24);
    const char *exponentMark = std::find(exact, written.ptr, 'e');
    RoundedDigits number{};
    number.count = count;
    number.digits[0] = exact[0];
    std::copy_n(exact + 2, count - 1, number.digits + 1);
    std::from_chars(exponentMark + (exponentMark[1] == '+' ? 2 : 1), written.ptr, number.exponent);
    if (exact[count + 1] >= '5') {
        roundUp(number);
    }
    while (number.count > 1 && number.digits[number.count - 1] == '0') {
        --number.count;
    }
    return number;
}

char *writeExponentForm(const RoundedDigits &number, char *out)
{
    *out++ = number.digits[0];
    if (number.count > 1) {
        *out++ = '.';
        out = std::copy(number.digits + 1, number.digits + number.count, out);
    }
    *out++ = 'E';
    *out++ = number.exponent < 0 ? '-' : '+';
    const int exponent = std::abs(number.exponent);
    if (exponent < 10) {
        *out++ = '0';
    }
    return std::to_chars(out, out + 4, exponent).ptr;
}

char *writeFixedForm(const RoundedDigits &number, char *out)
{
    if (number.exponent < 0) {
        *out++ = '0';
        *out++ = '.';
        out = std::fill_n(out, -number.exponent - 1, '0');
        return std::copy_n(number.digits, number.count, out);
    }
    const int integerDigits = number.exponent + 1;
    out = std::copy_n(number.digits, std::min(number.count, integerDigits), out);
    if (number.count <= integerDigits) {
        return std::fill_n(out, integerDigits - number.count, '0');
    }
    *out++ = '.';
    return std::copy(number.digits + integerDigits, number.digits + number.count, out);
}

char *writeNumber(double value, int digits, double exponentFormFrom, char *out)
{
    constexpr int smallestFixedExponent = -4;
    if (!std::isfinite(value)) {
        return std::to_chars(out, out + numberTextLength, value).ptr;
    }
    if (value == std::trunc(value) && std::abs(value) < exponentFormFrom) {
        return std::to_chars(out, out + numberTextLength, static_cast<qint64>(value)).ptr;
    }
    if (value < 0) {
        *out++ = '-';
    }
    const RoundedDigits number = roundedDigits(std::abs(value), digits);
    const bool isFixed = number.exponent >= smallestFixedExponent && number.exponent < digits;
    return isFixed ? writeFixedForm(number, out) : writeExponentForm(number, out);
}

} // namespace

std::optional<double> numericValue(QStringView text)
{
    const auto number = NumericParser(text).parse();
    return number ? std::optional(number->value) : std::nullopt;
}

bool isNumeric(QStringView text)
{
    return numericValue(text).has_value();
}

double leadingNumber(QStringView text)
{
    return leadingNumberOf(text.utf16(), text.utf16() + text.size());
}

double leadingNumber(QByteArrayView ascii)
{
    return leadingNumberOf(ascii.data(), ascii.data() + ascii.size());
}

QStringView leadingNumberText(QStringView text)
{
    const char16_t *const end = text.utf16() + text.size();
    const char16_t *first = std::find_if_not(text.utf16(), end, isNumberSpace);
    const char16_t *const digits = first + (first != end && (*first == u'-' || *first == u'+') ? 1 : 0);
    const char16_t *const point = skipDigits(digits, end);
    const bool hasPoint = point != end && *point == u'.';
    const char16_t *const mantissaEnd = hasPoint ? skipDigits(point + 1, end) : point;
    const bool isNumber = mantissaEnd - digits > (hasPoint ? 1 : 0);
    return isNumber ? QStringView(first, skipExponent(mantissaEnd, end)) : QStringView();
}

Result<qint16> toInt16(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<qint16>::min() && rounded <= std::numeric_limits<qint16>::max())) {
        return FailureCode::Overflow;
    }
    return static_cast<qint16>(rounded);
}

Result<qint16> toInt16(QStringView text)
{
    const auto number = NumericParser(text).parse();
    if (!number) {
        return number.failure();
    }
    if (number->isRadix && number->value <= std::numeric_limits<quint16>::max()) {
        return static_cast<qint16>(static_cast<quint16>(number->value));
    }
    return toInt16(number->value);
}

Result<qint16> hexToInt16(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && isNumberSpace(text[at].unicode())) {
        ++at;
    }
    int value = 0;
    for (; at < text.size() && hexDigit(text[at].unicode()) >= 0; ++at) {
        value = value * 16 + hexDigit(text[at].unicode());
        if (value > std::numeric_limits<quint16>::max()) {
            return FailureCode::Overflow;
        }
    }
    return static_cast<qint16>(static_cast<quint16>(value));
}

Result<bool> toBoolean(QStringView text)
{
    const auto is = [text](QLatin1StringView word) { return text.compare(word, Qt::CaseInsensitive) == 0; };
    if (is("True"_L1) || is("#TRUE#"_L1)) {
        return true;
    }
    if (is("False"_L1) || is("#FALSE#"_L1)) {
        return false;
    }
    const auto number = NumericParser(text).parse();
    if (!number) {
        return number.failure();
    }
    return number->value != 0;
}

char *writeSingle(float value, char *out)
{
    return writeNumber(value, singleDigits, 1e7, out);
}

QString singleText(float value)
{
    char text[numberTextLength];
    return QString::fromLatin1(text, writeSingle(value, text) - text);
}

QString doubleText(double value)
{
    char text[numberTextLength];
    return QString::fromLatin1(text, writeNumber(value, doubleDigits, 1e15, text) - text);
}
