#include "grid/cells/ShapedTexts.h"

#include "grid/cells/CellText.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr qsizetype maxCuts = 1024;

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

} // namespace

bool ShapedTexts::draw(QPainter &painter, const QRect &rect, Qt::Alignment alignment, QStringView text)
{
    takeFont(painter);
    if (!m_lines.has(text) || painter.layoutDirection() == Qt::RightToLeft) {
        return false;
    }
    if (drawLine(painter, rect, alignment, text)) {
        return true;
    }
    const QString &cut = cutText(text, rect.size());
    if (!drawLine(painter, rect, alignment, cut)) {
        painter.drawText(rect, int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine, cut);
    }
    return true;
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
        m_cuts.clear();
        m_lines.setFont(m_font);
    }
}

bool ShapedTexts::drawLine(QPainter &painter, const QRect &rect, Qt::Alignment alignment, QStringView text)
{
    const ShapedLine &line = m_lines.of(text);
    // The painter cuts a letter that reaches out of the rectangle.
    const bool fits = line.size.width() + line.overhang <= rect.width() && line.size.height() <= rect.height();
    if (fits) {
        line.draw(painter, topLeft(rect, alignment, line.size));
    }
    return fits;
}

const QString &ShapedTexts::cutText(QStringView text, const QSize &available)
{
    const QString key = QString::fromRawData(text.data(), text.size());
    if (const auto found = m_cuts.constFind(key); found != m_cuts.cend() && found->available == available) {
        return found->text;
    }
    if (m_cuts.size() >= maxCuts) {
        m_cuts.clear();
    }
    const QString shown = shownCellText(text, QFontMetrics(m_font), available);
    return m_cuts.insert(text.toString(), {shown, available})->text;
}
