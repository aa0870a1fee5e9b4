#include "grid/cells/ShapedTexts.h"

#include "grid/cells/CellText.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr qsizetype maxLength = 64;
constexpr qsizetype maxRecent = 1024; ///< some pages; less than a megabyte

/// Whether the character is drawn, and stays where it is written: it is no control character, and not from right to
/// left.
bool isOrdinary(QChar character)
{
    const char16_t unit = character.unicode();
    return (unit >= 0x20 && unit < 0x7F) || (unit > 0xA0 && unit < 0x0590 && unit != 0xAD)
        || (unit >= 0x2010 && unit < 0x2028) || (unit >= 0x2070 && unit < 0xD800) || (unit >= 0xFF01 && unit <= 0xFFEE);
}

/// Spaces at the ends count for some alignments and not for others.
bool isOrdinary(QStringView text)
{
    return !text.isEmpty() && text.size() <= maxLength && !text.front().isSpace() && !text.back().isSpace()
        && std::ranges::all_of(text, [](QChar character) { return isOrdinary(character); });
}

/// Where the painter's own texts begin: fractions of a pixel count in 64ths.
qreal inSteps(qreal place)
{
    constexpr qreal steps = 64;
    return std::trunc(place * steps) / steps;
}

QPointF topLeft(const QRect &rect, Qt::Alignment alignment, const QSizeF &size)
{
    const qreal space = rect.width() - size.width();
    const qreal left = alignment & Qt::AlignRight ? space : alignment & Qt::AlignHCenter ? space / 2 : 0;
    return {inSteps(rect.left() + left), inSteps(rect.top() + (rect.height() - size.height()) / 2)};
}

bool fits(const QSizeF &size, const QRect &rect)
{
    return std::round(size.width()) <= rect.width() && size.width() <= rect.width() && size.height() <= rect.height();
}

bool isDecorated(const QFont &font)
{
    return font.underline() || font.overline() || font.strikeOut();
}

} // namespace

bool ShapedTexts::draw(QPainter &painter, const QRect &rect, Qt::Alignment alignment, QStringView text)
{
    if (!isOrdinary(text) || painter.layoutDirection() == Qt::RightToLeft) {
        return false;
    }
    takeFont(painter);
    if (isDecorated(m_font)) {
        return false;
    }
    if (drawNumber(painter, rect, alignment, text) || drawLine(painter, rect, alignment, shaped(text).line)) {
        return true;
    }
    const QString cut = cutText(text, rect.size());
    if (!drawLine(painter, rect, alignment, shaped(cut).line)) {
        painter.drawText(rect, int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine, cut);
    }
    return true;
}

bool ShapedTexts::drawNumber(QPainter &painter, const QRect &rect, Qt::Alignment alignment, QStringView text)
{
    if (!m_numbers.has(text)) {
        return false;
    }
    const QSizeF size = m_numbers.size(text);
    if (!fits(size, rect)) {
        return false;
    }
    painter.drawGlyphRun(topLeft(rect, alignment, size), m_numbers.glyphs(text));
    return true;
}

bool ShapedTexts::drawLine(QPainter &painter, const QRect &rect, Qt::Alignment alignment, const ShapedLine &line)
{
    if (!fits(line.size, rect)) {
        return false;
    }
    const QPointF place = topLeft(rect, alignment, line.size);
    for (const QGlyphRun &run : line.runs) {
        painter.drawGlyphRun(place, run);
    }
    return true;
}

QString ShapedTexts::cutText(QStringView text, const QSize &available)
{
    Shaped &found = shaped(text);
    if (found.cutFor != available) {
        found.cut = shownCellText(text, QFontMetrics(m_font), available);
        found.cutFor = available;
    }
    return found.cut;
}

void ShapedTexts::takeFont(const QPainter &painter)
{
    const int dotsPerInch = painter.device()->logicalDpiY();
    if (m_font.isCopyOf(painter.font()) && m_dotsPerInch == dotsPerInch) {
        return;
    }
    const bool isSame = m_font == painter.font() && m_dotsPerInch == dotsPerInch;
    m_font = painter.font();
    m_dotsPerInch = dotsPerInch;
    if (!isSame) {
        m_recent.clear();
        m_former.clear();
        m_numbers.setFont(m_font);
    }
}

ShapedTexts::Shaped &ShapedTexts::shaped(QStringView text)
{
    const QString key = QString::fromRawData(text.data(), text.size());
    if (const auto found = m_recent.find(key); found != m_recent.end()) {
        return *found;
    }
    if (m_recent.size() >= maxRecent) {
        m_former = std::exchange(m_recent, {});
    }
    const auto former = m_former.find(key);
    const QString kept = text.toString();
    Shaped shaped = former != m_former.end() ? *former : Shaped{ShapedLine::of(kept, m_font), {}, {}};
    return *m_recent.insert(kept, std::move(shaped));
}
