#include "grid/cells/FitGuess.h"

// Kerning may set pairs of letters wider apart, but not all of them by an eighth.
bool FitGuess::surelyFits(QStringView text, const QFontMetrics &metrics, int width)
{
    constexpr double rounding = 1;
    constexpr double kerning = 1.125;
    if (m_metrics != metrics) {
        m_metrics = metrics;
        m_advances = {};
    }
    double sum = 0;
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (unit < u' ' || unit >= end || sum > width) {
            return false;
        }
        sum += advance(unit);
    }
    return sum * kerning + rounding <= width;
}

double FitGuess::advance(char16_t unit)
{
    double &known = m_advances[unit];
    if (known == 0) {
        known = QFontMetricsF(*m_metrics).horizontalAdvance(QChar(unit));
    }
    return known;
}
