#include "grid/cells/NumberShapes.h"

#include <QFont>
#include <QList>
#include <QString>

#include <algorithm>

namespace {

bool isKnown(QChar character)
{
    return (character >= u'0' && character <= u'9') || character == u'.' || character == u'-';
}

/// Each of the characters beside each, itself included.
QString allPairs(QStringView characters)
{
    QString text;
    for (const QChar left : characters) {
        for (const QChar right : characters) {
            text += left;
            text += right;
        }
    }
    return text;
}

} // namespace

void NumberShapes::setFont(const QFont &font)
{
    m_isUsable = false;
    const QString pairs = allPairs(known);
    m_line = ShapedLine::of(pairs + known.front(), font);
    if (m_line.runs.size() != 1 || m_line.runs.front().glyphIndexes().size() != pairs.size() + 1) {
        return;
    }
    const QList<quint32> glyphs = m_line.runs.front().glyphIndexes();
    const QList<QPointF> places = m_line.runs.front().positions();
    for (qsizetype i = 0; i < known.size(); ++i) {
        const qsizetype at = pairs.indexOf(known[i]);
        m_shapes[std::size_t(i)] = {glyphs[at], places[at + 1].x() - places[at].x()};
    }
    m_first = places.front();
    for (const QChar character : known) { // a number may end with each of them
        m_line.overhang = std::max(m_line.overhang, ShapedLine::of(character, font).overhang);
    }
    m_isUsable = true;
    for (qsizetype i = 0; i < pairs.size(); ++i) {
        const Shape &shape = shapeOf(pairs[i]);
        const QPointF next = places[i] + QPointF(shape.advance, 0);
        m_isUsable = m_isUsable && glyphs[i] == shape.glyph && places[i + 1] == next;
    }
}

bool NumberShapes::has(QStringView text) const
{
    return m_isUsable && std::size_t(text.size()) <= maxLength && std::ranges::all_of(text, isKnown);
}

const ShapedLine &NumberShapes::of(QStringView text)
{
    QPointF place = m_first;
    std::size_t count = 0;
    for (const QChar character : text) {
        const Shape &shape = shapeOf(character);
        m_glyphs[count] = shape.glyph;
        m_places[count] = place;
        place.rx() += shape.advance;
        ++count;
    }
    m_line.runs.front().setRawData(m_glyphs.data(), m_places.data(), int(count));
    m_line.size.setWidth(place.x() - m_first.x());
    return m_line;
}

const NumberShapes::Shape &NumberShapes::shapeOf(QChar character) const
{
    const int digit = character.unicode() - u'0';
    return m_shapes[std::size_t(digit >= 0 && digit <= 9 ? digit : character == u'.' ? 10 : 11)];
}
