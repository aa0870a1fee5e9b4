#pragma once

#include <QByteArrayView>
#include <QStringView>

/// Whether a byte or a UTF-16 unit is one of the digits 0 to 9.
template <typename Char>
constexpr bool isDigit(Char character)
{
    return character >= Char('0') && character <= Char('9');
}

/// The number from 0 to 99,999 that is written so; -1 for any other text, such as "007". Char: char or char16_t
template <typename Char>
constexpr int smallNumber(const Char *at, const Char *end)
{
    constexpr auto mostDigits = 5;
    if (at == end || end - at > mostDigits || (*at == Char('0') && end - at > 1)) {
        return -1;
    }
    int number = 0;
    for (; at != end; ++at) {
        if (!isDigit(*at)) {
            return -1;
        }
        number = number * 10 + int(*at - Char('0'));
    }
    return number;
}

inline int smallNumber(QByteArrayView text)
{
    return smallNumber(text.begin(), text.end());
}

inline int smallNumber(QStringView text)
{
    return smallNumber(text.utf16(), text.utf16() + text.size());
}
