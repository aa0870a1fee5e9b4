#include "grid/cells/VisibleText.h"

#include <algorithm>

namespace {

/// Nearly every character takes more than a pixel. Combining marks take none, but they are rarely many.
constexpr int unitsPerPixel = 2;
constexpr int minUnits = 512;

qsizetype unitsFor(int pixels)
{
    return minUnits + qsizetype(std::max(pixels, 0)) * unitsPerPixel;
}

/// That part of the text, without half a surrogate pair at either end.
QStringView wholeCharacters(QStringView text, qsizetype begin, qsizetype length)
{
    const bool cutsFront = begin > 0 && text[begin].isLowSurrogate();
    begin += cutsFront ? 1 : 0;
    length -= cutsFront ? 1 : 0;
    const qsizetype end = begin + length;
    const bool cutsBack = end < text.size() && text[end].isLowSurrogate() && text[end - 1].isHighSurrogate();
    return text.sliced(begin, length - (cutsBack ? 1 : 0));
}

} // namespace

bool VisibleText::isManyLines(QStringView text)
{
    constexpr qsizetype laidOutAtOnce = 16'384;
    return text.size() > laidOutAtOnce;
}

QStringView VisibleText::ofLine(QStringView text, int pixels, Qt::Alignment alignment)
{
    const qsizetype units = unitsFor(pixels);
    if (text.size() <= units) {
        return text;
    }
    const qsizetype hidden = text.size() - units;
    const qsizetype begin = alignment & Qt::AlignRight ? hidden : alignment & Qt::AlignHCenter ? hidden / 2 : 0;
    return wholeCharacters(text, begin, units);
}

VisibleText::Lines VisibleText::ofLines(
    QStringView text, const QRect &cell, const QRect &window, int lineHeight, Qt::Alignment alignment)
{
    const qsizetype count = 1 + text.count(u'\n'); // a carriage return is painted as a space
    const qint64 height = qint64(count) * lineHeight;
    const qint64 top = cell.top() + (cell.height() - height) / 2;
    const qint64 first = std::max<qint64>(0, (window.top() - top) / lineHeight - 1);
    const qint64 last = (window.bottom() - top) / lineHeight + 1;
    Lines visible{{}, int(top + first * lineHeight)};
    qint64 number = 0;
    for (const auto *at = text.begin(); number <= last; ++number) {
        const auto *end = std::find(at, text.end(), u'\n');
        if (number >= first) {
            visible.text += ofLine({at, end}, cell.width(), alignment);
            visible.text += u'\n';
        }
        if (end == text.end()) {
            break;
        }
        at = end + 1;
    }
    visible.text.chop(1);
    return visible;
}

QString VisibleText::beginning(QStringView text)
{
    constexpr qsizetype readable = 4096;
    return text.size() <= readable ? text.toString() : wholeCharacters(text, 0, readable).toString() + u'\u2026';
}
