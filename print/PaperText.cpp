#include "print/PaperText.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// Letter spacing, however small, keeps "f" and "i" from becoming one ligature, which a search in a PDF file would not
/// find.
constexpr double noLigatures = 1.0 / 64;

/// The font as it is printed: a size in pixels would be tiny on paper.
QFont paperFont(const QFont &font, QPaintDevice &paper)
{
    QFont sized = font;
    if (font.pixelSize() > 0) {
        sized.setPointSizeF(font.pixelSize() * 0.75);
    }
    sized.setLetterSpacing(QFont::AbsoluteSpacing, noLigatures);
    return {sized, &paper};
}

bool isLineBreak(QChar character)
{
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator;
}

bool hasLineBreak(QStringView text)
{
    return std::ranges::any_of(text, isLineBreak);
}

QString withLineSeparators(QString text)
{
    return text.replace("\r\n"_L1, "\n"_L1).replace(u'\r', QChar::LineSeparator).replace(u'\n', QChar::LineSeparator);
}

/// More characters than fit on any page. Combining marks take no space of their own, but they are rarely many.
qsizetype unitsOnAPage(const QFontMetricsF &metrics, const QPaintDevice &paper)
{
    constexpr double narrowest = 0.2; // of the height
    const double perLine = paper.width() / (metrics.height() * narrowest);
    const double lines = paper.height() / metrics.height() + 1;
    return qsizetype(perLine * lines) + 1000;
}

double leftEdge(const QRectF &area, Qt::Alignment alignment, double width)
{
    if (alignment & Qt::AlignHCenter) {
        return area.left() + (area.width() - width) / 2;
    }
    return (alignment & Qt::AlignRight) ? area.right() - width : area.left();
}

double topEdge(const QRectF &area, Qt::Alignment alignment, double height)
{
    const bool centred = (alignment & Qt::AlignVCenter) && height < area.height();
    return centred ? area.top() + (area.height() - height) / 2 : area.top();
}

} // namespace

PaperText::PaperText(const QFont &font, QPaintDevice &paper)
    : m_font(paperFont(font, paper))
    , m_paper(&paper)
    , m_metrics(m_font, &paper)
    , m_characterWidth(m_metrics.horizontalAdvance(u'0'))
    , m_maxUnits(unitsOnAPage(m_metrics, paper))
    , m_widestCharacter(std::max(m_metrics.horizontalAdvance(u'W'), m_metrics.horizontalAdvance(QChar(u'漢'))))
{
    m_asciiWidths.fill(m_widestCharacter);
    for (char16_t code = u' '; code < u'\x7f'; ++code) {
        m_asciiWidths[code] = m_metrics.horizontalAdvance(QChar(code));
    }
    m_lines.setFont(m_font);
}

bool PaperText::isShort(QStringView text, double width) const
{
    if (text.size() > m_maxUnits) {
        return false;
    }
    double atMost = 0;
    for (const QChar character : text) {
        const auto code = character.unicode();
        atMost += code < m_asciiWidths.size() ? m_asciiWidths[code] : m_widestCharacter;
    }
    return atMost <= width && !hasLineBreak(text);
}

int PaperText::lineCount(const QString &wholeText, double width) const
{
    const QString text = wholeText.left(m_maxUnits);
    if (!hasLineBreak(text) && this->width(text) <= withTolerance(width)) {
        return 1;
    }
    QTextLayout layout(withLineSeparators(text), m_font, m_paper);
    layOut(layout, width);
    return std::max(layout.lineCount(), 1);
}

void PaperText::draw(QPainter &painter, const QRectF &area, Qt::Alignment alignment, const QString &wholeText) const
{
    if (drawShaped(painter, area, alignment, wholeText)) {
        return;
    }
    const QString text = wholeText.left(m_maxUnits);
    const double textWidth = width(text);
    if (hasLineBreak(text) || textWidth > withTolerance(area.width())) {
        drawLines(painter, area, alignment, text);
        return;
    }
    const double left = leftEdge(area, alignment, textWidth);
    painter.drawText(QPointF(left, topEdge(area, alignment, lineHeight()) + ascent()), text);
}

/// The same for a text that may have been laid out before; false if it is not that simple.
bool PaperText::drawShaped(QPainter &painter, const QRectF &area, Qt::Alignment alignment, const QString &text) const
{
    if (!m_lines.has(text)) {
        return false;
    }
    const ShapedLine &line = m_lines.of(text);
    const bool fits = line.size.width() <= withTolerance(area.width());
    if (fits) {
        const double baseline = topEdge(area, alignment, lineHeight()) + ascent();
        line.draw(painter, QPointF(leftEdge(area, alignment, line.size.width()), baseline - line.ascent));
    }
    return fits;
}

void PaperText::layOut(QTextLayout &layout, double width) const
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(withTolerance(width));
    }
    layout.endLayout();
}

/// The last line that fits, with an ellipsis for the text that is left out.
QString PaperText::cutLine(QStringView rest, double width) const
{
    const auto end = std::ranges::find(rest, QChar::LineSeparator);
    QString line = rest.first(end - rest.begin()).toString();
    line.truncate(qsizetype(width)); // a character is never narrower than a device unit
    return m_metrics.elidedText(line + u'\u2026', Qt::ElideRight, width);
}

void PaperText::drawLines(QPainter &painter, const QRectF &area, Qt::Alignment alignment, const QString &text) const
{
    QTextLayout layout(withLineSeparators(text), m_font, m_paper);
    layOut(layout, area.width());
    const double top = topEdge(area, alignment, layout.lineCount() * lineHeight());
    const int linesThatFit = std::max(1, int(std::floor(area.height() / lineHeight() + 0.01)));
    for (int i = 0; i < std::min(layout.lineCount(), linesThatFit); ++i) {
        const QTextLine line = layout.lineAt(i);
        const double left = leftEdge(area, alignment, line.naturalTextWidth());
        const double baseline = top + i * lineHeight() + ascent();
        if (i == linesThatFit - 1 && layout.lineCount() > linesThatFit) {
            painter.drawText(
                QPointF(area.left(), baseline), cutLine(layout.text().sliced(line.textStart()), area.width()));
        } else {
            line.draw(&painter, QPointF(left - line.x(), baseline - line.ascent() - line.y()));
        }
    }
}
