#pragma once

#include <QGlyphRun>
#include <QPointF>
#include <QSizeF>
#include <QStringView>

#include <array>

class QFont;

/// The glyphs of numbers, put together from those of their digits: a page shows numbers that were never shown before,
/// and hardly a font sets a digit otherwise because of its neighbours. Numbers in a font that does have none here.
class NumberShapes
{
public:
    void setFont(const QFont &font);

    /// Whether glyphs() knows the text: a short one of digits, points and hyphens.
    bool has(QStringView text) const;
    /// The glyphs of a text that it knows, to be drawn at the top left corner. Valid until the next call.
    const QGlyphRun &glyphs(QStringView text);
    /// Pixels that a text that it knows takes.
    QSizeF size(QStringView text) const;

private:
    static constexpr QStringView known = u"0123456789.-";
    static constexpr std::size_t maxLength = 32;

    struct Shape
    {
        quint32 glyph = 0;
        qreal advance = 0;
    };

    const Shape &shapeOf(QChar character) const;

    bool m_isUsable = false;
    std::array<Shape, known.size()> m_shapes;
    QPointF m_first; ///< where a text's first glyph is
    qreal m_height = 0;
    QGlyphRun m_run;
    std::array<quint32, maxLength> m_glyphs = {};
    std::array<QPointF, maxLength> m_places = {};
};
