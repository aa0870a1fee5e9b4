#include "grid/cells/ShapedLine.h"

#include <QFont>
#include <QPainter>
#include <QTextLayout>

ShapedLine ShapedLine::of(const QString &text, const QFont &font)
{
    constexpr qreal endless = 0x01000000;
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(endless);
    layout.endLayout();
    return {layout.glyphRuns(), {line.horizontalAdvance(), line.ascent() + line.descent()}, line.ascent()};
}

void ShapedLine::draw(QPainter &painter, const QPointF &topLeft) const
{
    for (const QGlyphRun &run : runs) {
        painter.drawGlyphRun(topLeft, run);
    }
}
