#include "print/GridPagePainter.h"

#include "grid/SpreadGrid.h"
#include "runtime/NumberText.h"

#include <QPainter>

namespace {

constexpr QColor HeadingColour(0xe4, 0xe4, 0xe4);
constexpr QColor HeadingLight(0xff, 0xff, 0xff);
constexpr QColor HeadingShadow(0x80, 0x80, 0x80);
constexpr QColor GridLineColour(0xa0, 0xa0, 0xa0);

} // namespace

GridPagePainter::GridPagePainter(const GridPrintLayout &layout, const GridPrintOptions &options, QPainter &painter)
    : m_layout(layout), m_options(options), m_painter(painter)
{
}

void GridPagePainter::paintPage(int page)
{
    m_painter.setFont(m_layout.text().font());
    m_painter.setPen(Qt::black);
    paintLines(m_options.header.lines(page), 0);

    paintTable(m_layout.columnsOn(page), m_layout.pages().rows(page));

    m_painter.setPen(Qt::black);
    const QList<PageTextLine> footer = m_options.footer.lines(page);
    paintLines(footer, m_layout.pageHeight() - m_layout.linesHeight(footer));
}

void GridPagePainter::paintLines(const QList<PageTextLine> &lines, double top)
{
    for (const PageTextLine &line : lines) {
        const double height = m_layout.lineHeight(line);
        const QRectF area(0, top, m_layout.pageWidth(), height);
        m_layout.text().draw(m_painter, area, Qt::AlignLeft, line.left);
        m_layout.text().draw(m_painter, area, Qt::AlignHCenter, line.centre);
        m_layout.text().draw(m_painter, area, Qt::AlignRight, line.right);
        top += height;
    }
}

// Lines of the same colour are painted together: a PDF file says each change of it. Texts are in the order in which
// they are read.
void GridPagePainter::paintTable(const QList<PaperColumn> &columns, const PrintSpan &rows)
{
    QList<QRectF> headings;
    QList<QRectF> cells;
    appendRow(headings, headings, m_layout.tableTop(), m_layout.headingHeight(), columns);
    for (int row = rows.first; row <= rows.last; ++row) {
        appendRow(headings, cells, headings.constLast().bottom(), m_layout.rowHeight(row), columns);
    }
    paintHeadings(headings);
    m_painter.setPen(QPen(GridLineColour, m_layout.lineWidth()));
    m_painter.drawRects(headings);
    m_painter.drawRects(cells);

    auto heading = headings.cbegin();
    paintHeadingText(*heading++, 0, 0);
    for (const PaperColumn &column : columns) {
        paintHeadingText(*heading++, column.column, 0);
    }
    auto cell = cells.cbegin();
    for (int row = rows.first; row <= rows.last; ++row) {
        paintHeadingText(*heading++, 0, row);
        for (const PaperColumn &column : columns) {
            paintContent(inner(*cell++), column, row);
        }
    }
}

void GridPagePainter::appendRow(
    QList<QRectF> &first, QList<QRectF> &others, double top, double height, const QList<PaperColumn> &columns) const
{
    QRectF cell(0, top, m_layout.rowNumberWidth(), height);
    first.append(cell);
    for (const PaperColumn &column : columns) {
        cell = QRectF(cell.right(), top, column.width, height);
        others.append(cell);
    }
}

void GridPagePainter::paintHeadings(const QList<QRectF> &cells)
{
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(HeadingColour);
    m_painter.drawRects(cells);
    m_painter.setBrush(Qt::NoBrush);
    const double width = m_layout.lineWidth();
    m_painter.setPen(QPen(HeadingLight, width));
    for (const QRectF &cell : cells) {
        const QRectF edge = cell.adjusted(width, width, -width, -width);
        m_painter.drawPolyline(QPolygonF({edge.bottomLeft(), edge.topLeft(), edge.topRight()}));
    }
    m_painter.setPen(QPen(HeadingShadow, width));
    for (const QRectF &cell : cells) {
        const QRectF edge = cell.adjusted(width, width, -width, -width);
        m_painter.drawPolyline(QPolygonF({edge.bottomLeft(), edge.bottomRight(), edge.topRight()}));
    }
}

void GridPagePainter::paintHeadingText(const QRectF &cell, int column, int row)
{
    m_painter.setPen(Qt::black);
    m_layout.text().draw(m_painter, inner(cell), Qt::AlignCenter, m_layout.grid().text(column, row));
}

void GridPagePainter::paintContent(const QRectF &area, const PaperColumn &column, int row)
{
    const SpreadGrid &grid = m_layout.grid();
    const QString text = grid.text(column.column, row);
    m_painter.setPen(inkOf(column.column, row));
    const CellType type = grid.cellType(column.column, row);
    if (type.kind == CellType::Kind::CheckBox) {
        paintCheckBox(area, column.alignment, numericValue(text).value_or(0) != 0, type.caption);
    } else {
        m_layout.text().draw(m_painter, area, column.alignment, text);
    }
}

void GridPagePainter::paintCheckBox(const QRectF &inner, Qt::Alignment alignment, bool ticked, const QString &caption)
{
    const double size = std::min(m_layout.text().ascent() * 0.9, inner.width());
    const double left =
        caption.isEmpty() && (alignment & Qt::AlignHCenter) ? inner.center().x() - size / 2 : inner.left();
    const QRectF box(left, inner.center().y() - size / 2, size, size);
    const QPen ink = m_painter.pen();
    m_painter.setPen(QPen(ink.color(), m_layout.lineWidth()));
    m_painter.drawRect(box);
    if (ticked) {
        paintTick(box);
    }
    m_painter.setPen(ink);
    const QRectF beside = inner.adjusted(size + m_layout.padding(), 0, 0, 0);
    if (!caption.isEmpty() && beside.width() > 0) {
        m_layout.text().draw(m_painter, beside, Qt::AlignLeft | Qt::AlignVCenter, caption);
    }
}

void GridPagePainter::paintTick(const QRectF &box)
{
    const auto at = [&box](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    m_painter.setPen(QPen(m_painter.pen().color(), box.width() / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.drawPolyline(QPolygonF({at(0.2, 0.5), at(0.42, 0.75), at(0.8, 0.25)}));
}

QRectF GridPagePainter::inner(const QRectF &cell) const
{
    return cell.adjusted(m_layout.padding(), 0, -m_layout.padding(), 0);
}

QColor GridPagePainter::inkOf(int column, int row) const
{
    // On a dark desktop the text colour may be white, but the paper is not dark.
    const QColor colour = m_layout.grid().textColour(column, row);
    const bool isDefault = !colour.isValid() || colour == m_layout.grid().palette().color(QPalette::Text);
    return isDefault ? QColor(Qt::black) : colour;
}
