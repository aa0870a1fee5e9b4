#include "runtime/DecimalValue.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

/// The exponent after "e"; far outside a double's range if it does not fit a number.
int writtenExponent(QByteArrayView exponent)
{
    constexpr int beyond = std::numeric_limits<int>::max() / 2;
    if (exponent.startsWith('+')) {
        exponent = exponent.sliced(1);
    }
    int value = 0;
    const auto parsed = std::from_chars(exponent.begin(), exponent.end(), value);
    if (parsed.ec == std::errc::result_out_of_range) {
        return exponent.startsWith('-') ? -beyond : beyond;
    }
    return value;
}

/// Whether a number that a double cannot hold is too large for it, not too small.
bool isLarge(QByteArrayView number)
{
    const auto *mark = std::find_if(number.begin(), number.end(), [](char c) { return c == 'e' || c == 'E'; });
    const auto *point = std::find(number.begin(), mark, '.');
    const auto *first = std::find_if(number.begin(), mark, [](char c) { return c >= '1' && c <= '9'; });
    const int exponent = mark == number.end() ? 0 : writtenExponent(QByteArrayView(mark + 1, number.end()));
    return point - first + exponent > 0;
}

} // namespace

double decimalValue(QByteArrayView number)
{
    double value = 0;
    const auto parsed = std::from_chars(number.begin(), number.end(), value);
    if (parsed.ec == std::errc::result_out_of_range) {
        return isLarge(number) ? std::numeric_limits<double>::infinity() : 0;
    }
    return value;
}
