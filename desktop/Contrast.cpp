#include "desktop/Contrast.h"

#include <QAbstractButton>

#include <algorithm>
#include <cmath>

namespace {

// Relative luminance of sRGB, 0 to 1.
double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(double luminance1, double luminance2)
{
    return (std::max(luminance1, luminance2) + 0.05) / (std::min(luminance1, luminance2) + 0.05);
}

QColor shaded(const QColor &background, const QColor &colour, double enough)
{
    constexpr int steps = 20;
    const double backgroundLuminance = luminance(background);
    const int target = backgroundLuminance < 0.18 ? 255 : 0;
    QColor shade = colour;
    for (int step = 1; step <= steps && contrast(luminance(shade), backgroundLuminance) < enough; ++step) {
        const auto mixed = [&](int part) { return part + (target - part) * step / steps; };
        shade = QColor(mixed(colour.red()), mixed(colour.green()), mixed(colour.blue()));
    }
    return shade;
}

} // namespace

QColor readableOn(const QColor &background, const QColor &colour)
{
    constexpr double forTexts = 4.5;
    return shaded(background, colour, forTexts);
}

QColor lineOn(const QColor &background, const QColor &colour)
{
    constexpr double forLines = 1.6;
    return shaded(background, colour, forLines);
}

QPalette boxPalette(QPalette palette, const QColor &background, const QColor &own)
{
    constexpr double forFrames = 4; // the style softens them a little
    // Per cent by which the style draws frames darker than the window, and ticks darker than texts
    constexpr int framesAreDarker = 140;
    constexpr int ticksAreDarker = 120;
    const QColor frame = own.isValid() ? own : palette.color(QPalette::Window).darker(framesAreDarker);
    palette.setColor(QPalette::Window, shaded(background, frame, forFrames).lighter(framesAreDarker));
    if (own.isValid()) {
        palette.setColor(QPalette::Text, readableOn(background, own).lighter(ticksAreDarker));
    }
    return palette;
}

void showBoxesOf(QWidget &window)
{
    const QPalette &palette = window.palette();
    const QColor background = palette.color(QPalette::Window);
    const QColor page = palette.color(QPalette::Button).lighter(); // below tabs; the style lightens it less than that
    const bool isDark = luminance(background) < luminance(palette.color(QPalette::WindowText));
    QPalette own; // nothing but the frames' colour
    own.setColor(QPalette::Window, boxPalette(palette, isDark ? page : background).color(QPalette::Window));
    for (auto *button : window.findChildren<QAbstractButton *>()) {
        if (button->inherits("QCheckBox") || button->inherits("QRadioButton")) {
            button->setPalette(own);
        }
    }
}

QColor tinted(const QColor &background, const QColor &tint)
{
    const auto mixed = [](int part, int of) { return (3 * part + 2 * of) / 5; };
    return {mixed(background.red(), tint.red()), mixed(background.green(), tint.green()),
        mixed(background.blue(), tint.blue())};
}
