#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QString>

#include <array>

/// Finds the widest of many texts without laying out each of them: the widths of characters, and what the font's
/// kerning adds for pairs, are measured once. Only texts whose width cannot be computed from these are laid out.
class TextMeter
{
public:
    explicit TextMeter(const QFont &font);

    /// A wider text counts as this wide, so that one of millions of characters takes no time.
    static constexpr int maxPixels = 16'384;

    /// The widest line of a text with line breaks counts.
    void add(QStringView text);
    /// The pixels that the widest text so far takes, rounded up; maxPixels at most.
    int widest() const;

private:
    static constexpr int ascii = 128;

    void addLine(QStringView line);
    double advance(char16_t unit);
    double pairAdvance(char16_t first, char16_t second);
    double laidOut(const QString &text) const { return m_metrics.horizontalAdvance(text); }

    QFontMetricsF m_metrics;
    std::array<double, ascii> m_asciiAdvances;
    std::array<float, size_t(ascii) * ascii> m_pairAdvances; ///< what a pair takes in addition to its characters
    QHash<char16_t, double> m_advances;
    double m_widest = 0;
    QString m_widestText;
};
