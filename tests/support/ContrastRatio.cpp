#include "tests/support/ContrastRatio.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace {

double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

double contrastRatio(const QColor &colour1, const QColor &colour2)
{
    const auto [darker, lighter] = std::minmax({luminance(colour1), luminance(colour2)});
    return (lighter + 0.05) / (darker + 0.05);
}
