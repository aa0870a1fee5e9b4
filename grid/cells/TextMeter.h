#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QString>

#include <array>

/// Finds the widest of many texts without laying each of them out: widths of characters, and of pairs that the font
/// moves together, are measured once. Only texts whose width cannot be had from these are laid out.
class TextMeter
{
public:
    explicit TextMeter(const QFont &font);

    /// A text that is wider counts as this wide, so that one of millions of characters takes no time.
    static constexpr int maxPixels = 16'384;

    /// Of a text with line breaks its widest line counts.
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
    std::array<float, size_t(ascii) * ascii> m_pairAdvances; ///< what a pair takes more than its characters
    QHash<char16_t, double> m_advances;
    double m_widest = 0;
    QString m_widestText;
};
