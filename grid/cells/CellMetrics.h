#pragma once

#include <QFontMetrics>
#include <QStringView>

/// The pixels that a cell takes in addition to its text, at 100 %.
namespace CellMetrics {

constexpr int margin = 4; ///< left and right of the text
constexpr int gridLine = 1;
constexpr int extraWidth = 2 * margin + gridLine;
constexpr int extraHeight = 6; ///< above and below the text, with the grid line
constexpr int arrowWidth = 18;

/// Pixels at 100 % as they are at that zoom (per cent).
constexpr int zoomed(int pixels, int zoom)
{
    return (pixels * zoom + 50) / 100;
}

/// The height of a row whose tallest text this is.
int rowHeight(const QFontMetrics &metrics, QStringView text);

} // namespace CellMetrics
