#include "grid/cells/ShapedLine.h"

#include <QFont>
#include <QTextLayout>

ShapedLine ShapedLine::of(const QString &text, const QFont &font)
{
    constexpr qreal endless = 0x01000000;
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(endless);
    layout.endLayout();
    return {layout.glyphRuns(), {line.horizontalAdvance(), line.ascent() + line.descent()}};
}
