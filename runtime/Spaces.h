#pragma once

#include <QStringView>

/// Whether the platform's number conversions pass over the character: the space, tab to carriage return, the no-break
/// space and the ideographic one.
constexpr bool isNumberSpace(char16_t character)
{
    return character == u' ' || (character >= 0x09 && character <= 0x0D) || character == 0x00A0 || character == 0x3000;
}

/// text without the spaces (U+0020 only) at either end; tabs and wide spaces belong to a text.
constexpr QStringView trimSpaces(QStringView text)
{
    while (!text.isEmpty() && text.front() == u' ') {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && text.back() == u' ') {
        text.chop(1);
    }
    return text;
}
