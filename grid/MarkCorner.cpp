#include "grid/MarkCorner.h"

#include "desktop/Contrast.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace {

constexpr QRgb errorColour = 0xffd00000;
constexpr QRgb warningColour = 0xffe07800;

/// The frame of the active cell takes two pixels at each edge.
constexpr qreal frame = 2;

qreal sideOf(const QFontMetrics &metrics)
{
    constexpr int minSide = 8;
    constexpr int partOfHeight = 5;
    return std::max(minSide, metrics.height() * 2 / partOfHeight);
}

} // namespace

void paintMarkCorner(QPainter &painter, const QRect &cell, CellMark mark, const QColor &background)
{
    const qreal side = sideOf(painter.fontMetrics());
    const QPointF corner(cell.x() + cell.width() - frame, cell.y() + frame);
    painter.save();
    painter.setClipRect(cell, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (mark == CellMark::Error) {
        painter.setBrush(readableOn(background, QColor(errorColour)));
        painter.drawPolygon(QPolygonF({corner - QPointF(side, 0), corner, corner + QPointF(0, side)}));
    } else {
        painter.setBrush(readableOn(background, QColor(warningColour)));
        painter.drawEllipse(QRectF(corner + QPointF(1 - side, 0), QSizeF(side - 1, side - 1)));
    }
    painter.restore();
}
