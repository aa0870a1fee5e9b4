#include "grid/cells/TextMeter.h"

#include "grid/cells/LineEnds.h"
#include "grid/cells/VisibleText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Kana, ideographs and their full and half-width forms are drawn side by side; combining marks are not.
bool isSideBySide(char16_t unit)
{
    const bool isKana = unit >= 0x3041 && unit <= 0x30FF && unit != 0x3099 && unit != 0x309A;
    return isKana || (unit >= 0x4E00 && unit <= 0x9FFF) || (unit >= 0xFF01 && unit <= 0xFFEE);
}

bool isAscii(char16_t unit)
{
    return unit >= u' ' && unit < 0x7F;
}

} // namespace

TextMeter::TextMeter(const QFont &font) : m_metrics(font)
{
    m_asciiAdvances.fill(std::numeric_limits<double>::quiet_NaN());
    m_pairAdvances.fill(std::numeric_limits<float>::quiet_NaN());
}

void TextMeter::add(QStringView text)
{
    while (m_widest < maxPixels) {
        const qsizetype length = LineEnds::first(text);
        addLine(text.first(length));
        if (length == text.size()) {
            return;
        }
        text = text.sliced(length + 1);
    }
}

int TextMeter::widest() const
{
    return std::min(maxPixels, int(std::ceil(std::max(m_widest, laidOut(m_widestText)))));
}

void TextMeter::addLine(QStringView line)
{
    line = VisibleText::ofLine(line, maxPixels, Qt::AlignLeft);
    double width = 0;
    char16_t last = 0;
    for (const QChar character : line) {
        const char16_t unit = character.unicode();
        if (!isAscii(unit) && !isSideBySide(unit)) {
            width = laidOut(line.toString());
            break;
        }
        width += advance(unit);
        width += isAscii(unit) && last != 0 && isAscii(last) ? pairAdvance(last, unit) : 0;
        last = unit;
    }
    if (width > m_widest) {
        m_widest = width;
        m_widestText = line.toString();
    }
}

double TextMeter::advance(char16_t unit)
{
    if (unit >= ascii) {
        const auto found = m_advances.constFind(unit);
        return found != m_advances.cend() ? *found : *m_advances.insert(unit, laidOut(QString(QChar(unit))));
    }
    double &known = m_asciiAdvances[unit];
    if (std::isnan(known)) {
        known = laidOut(QString(QChar(unit)));
    }
    return known;
}

double TextMeter::pairAdvance(char16_t first, char16_t second)
{
    float &known = m_pairAdvances[size_t(first) * ascii + second];
    if (std::isnan(known)) {
        const QChar pair[] = {QChar(first), QChar(second)};
        known = float(laidOut(QString(pair, 2)) - advance(first) - advance(second));
    }
    return known;
}
