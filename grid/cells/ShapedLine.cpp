#include "grid/cells/ShapedLine.h"

#include <QFont>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

ShapedLine ShapedLine::of(const QString &text, const QFont &font)
{
    constexpr qreal endless = 0x01000000;
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(endless);
    layout.endLayout();
    const qreal width = line.horizontalAdvance();
    return {.runs = layout.glyphRuns(),
        .size = {width, line.ascent() + line.descent()},
        .overhang = std::max(line.naturalTextWidth() - width, 0.0),
        .ascent = line.ascent()};
}

void ShapedLine::draw(QPainter &painter, const QPointF &topLeft) const
{
    for (const QGlyphRun &run : runs) {
        painter.drawGlyphRun(topLeft, run);
    }
}
