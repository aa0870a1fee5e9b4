#pragma once

#include <QStringView>

#include <algorithm>

/// The line ends in a cell's text: CR LF, CR or LF.
namespace LineEnds {

inline bool isUnit(QChar unit)
{
    return unit == u'\n' || unit == u'\r';
}

/// Whether the text has several lines.
inline bool areIn(QStringView text)
{
    bool areIn = false;
    for (const QChar unit : text) {
        areIn |= isUnit(unit); // without a way out of the loop, so that the compiler can take several at once
    }
    return areIn;
}

/// The number of line ends; CR LF is one.
inline qsizetype count(QStringView text)
{
    return text.count(u'\n') + text.count(u'\r') - text.count(u"\r\n");
}

/// Where the text's first line ends: at its first line end or at the end of the text.
inline qsizetype first(QStringView text)
{
    return std::ranges::find_if(text, isUnit) - text.begin();
}

} // namespace LineEnds
