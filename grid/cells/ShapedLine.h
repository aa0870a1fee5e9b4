#pragma once

#include <QGlyphRun>
#include <QList>
#include <QSizeF>

class QFont;
class QString;

/// A line of text, laid out.
struct ShapedLine
{
    QList<QGlyphRun> runs; ///< to be drawn at the top left corner of the line
    QSizeF size; ///< pixels

    static ShapedLine of(const QString &text, const QFont &font);
};
