#pragma once

#include "grid/cells/ShapedLine.h"

#include <QPointF>
#include <QStringView>

#include <array>

class QFont;

/// Numbers, put together from their digits: a page shows numbers that were never shown before, and hardly a font sets a
/// digit otherwise because of its neighbours. Numbers in a font that does are not known here.
class NumberShapes
{
public:
    void setFont(const QFont &font);

    /// Whether of() knows the text: a short one of digits, points and hyphens.
    bool has(QStringView text) const;
    /// A text that it knows. Valid until the next call.
    const ShapedLine &of(QStringView text);

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
    ShapedLine m_line; ///< of one run
    std::array<quint32, maxLength> m_glyphs = {};
    std::array<QPointF, maxLength> m_places = {};
};
