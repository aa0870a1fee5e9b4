#pragma once

#include <QFontMetrics>
#include <QStringView>

#include <array>
#include <optional>

/// Tells, without laying it out, that a text surely fits into a width: nearly every cell's does, and laying it out
/// takes as long as drawing it.
class FitGuess
{
public:
    /// Whether the text fits for certain: it is one line of ASCII characters, and narrower by far. A no decides
    /// nothing.
    bool surelyFits(QStringView text, const QFontMetrics &metrics, int width);

private:
    static constexpr char16_t end = 0x7F;

    double advance(char16_t unit);

    std::optional<QFontMetrics> m_metrics; ///< that m_advances are of
    std::array<double, end> m_advances = {}; ///< 0: not known
};
