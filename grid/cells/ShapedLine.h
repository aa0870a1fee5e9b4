#pragma once

#include <QGlyphRun>
#include <QList>
#include <QSizeF>

class QFont;
class QPainter;
class QPointF;
class QString;

/// A line of text, laid out.
struct ShapedLine
{
    QList<QGlyphRun> runs; ///< to be drawn at the top left corner of the line
    QSizeF size; ///< its width says where the next letter would begin
    qreal overhang = 0; ///< how far the last letter reaches beyond that width, at least 0
    qreal ascent = 0; ///< from the top to the line on which the letters stand

    static ShapedLine of(const QString &text, const QFont &font);
    void draw(QPainter &painter, const QPointF &topLeft) const;
};
