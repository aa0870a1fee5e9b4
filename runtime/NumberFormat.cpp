#include "runtime/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace {

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

char *writePlainForm(const RoundedDigits &number, char *out)
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
    constexpr int smallestPlainExponent = -4;
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
    const bool plain = number.exponent >= smallestPlainExponent && number.exponent < digits;
    return plain ? writePlainForm(number, out) : writeExponentForm(number, out);
}

} // namespace

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
