#include "print/GridPrintLayout.h"

#include "grid/SpreadGrid.h"

#include <algorithm>

namespace {

constexpr double LinesPerInch = 144; // the width of the grid lines: half a point

Qt::Alignment columnAlignment(const SpreadGrid &grid, int column)
{
    const auto horizontal = grid.alignment(column) & Qt::AlignHorizontal_Mask;
    return Qt::AlignVCenter | (horizontal ? horizontal : Qt::AlignLeft);
}

} // namespace

GridPrintLayout::GridPrintLayout(
    const SpreadGrid &grid, const PrintArea &area, const GridPrintOptions &options, QPaintDevice &paper)
    : m_grid(grid)
    , m_text(grid.gridFont(), paper)
    , m_pageWidth(paper.width())
    , m_pageHeight(paper.height())
    , m_scaleX(m_text.characterWidth() / QFontMetricsF(grid.gridFont()).horizontalAdvance(u'0'))
    , m_scaleY(double(paper.logicalDpiY()) / grid.logicalDpiY())
    , m_lineWidth(paper.logicalDpiX() / LinesPerInch)
    , m_headerHeight(linesHeight(options.header.lines(1)))
    , m_footerHeight(linesHeight(options.footer.lines(1)))
    , m_pages({}, {})
{
    m_rowNumberWidth = findRowNumberWidth(area);
    for (const int column : area.columns) {
        m_columns.append({column, columnWidth(column), columnAlignment(grid, column)});
    }
    m_isFirstRepeated = isFirstRepeated(area);
    if (m_isFirstRepeated) {
        const double available = m_pageWidth - m_rowNumberWidth - repeatedWidth();
        for (PaperColumn &column : m_columns) {
            column.width = std::min(column.width, available);
        }
    }
    m_headingHeight = findHeadingHeight();
    const double gap = m_footerHeight > 0 ? m_text.lineHeight() / 2 : 0;
    m_maxRowHeight = std::max(m_pageHeight - m_headerHeight - m_headingHeight - gap - m_footerHeight, textHeight(1));
    m_pages = breakPages(area);
}

double GridPrintLayout::columnWidth(int column) const
{
    // A heading that fits on the screen must not be wrapped because its letters are a little wider on paper.
    const double width = scaledWidth(m_grid.unzoomedColumnWidth(column));
    const double heading = m_text.width(m_grid.text(column, 0)) + 2 * padding();
    const double wide = heading > width && heading < width * 1.2 ? heading : width;
    return std::min(std::max(wide, textHeight(1)), m_pageWidth - m_rowNumberWidth);
}

// Not if it would leave too little width for the others.
bool GridPrintLayout::isFirstRepeated(const PrintArea &area) const
{
    return m_grid.frozenColumns() > 0 && m_columns.size() > 1 && area.columns.constFirst() == 1
        && m_columns.constFirst().width < (m_pageWidth - m_rowNumberWidth) / 2;
}

double GridPrintLayout::findRowNumberWidth(const PrintArea &area) const
{
    const double shown = scaledWidth(m_grid.unzoomedRowNumberWidth());
    const double needed = m_text.width(m_grid.text(0, area.rows.last)) + 2 * padding();
    return std::min(std::max(shown, needed), m_pageWidth / 2);
}

double GridPrintLayout::findHeadingHeight() const
{
    int lines = 1;
    for (const PaperColumn &column : m_columns) {
        lines = std::max(lines, m_text.lineCount(m_grid.text(column.column, 0), column.width - 2 * padding()));
    }
    const double shown = m_grid.unzoomedRowHeight(0) * m_scaleY;
    return std::min(std::max(shown, textHeight(lines)), m_pageHeight / 3);
}

double GridPrintLayout::rowHeight(int row) const
{
    int lines = 1;
    for (const PaperColumn &column : m_columns) {
        const double width = column.width - 2 * padding();
        if (!m_text.isShort(m_grid.cellText(column.column, row), width)) {
            lines = std::max(lines, m_text.lineCount(m_grid.text(column.column, row), width));
        }
    }
    return std::min(std::max(m_grid.unzoomedRowHeight(row) * m_scaleY, textHeight(lines)), m_maxRowHeight);
}

double GridPrintLayout::lineHeight(const PageTextLine &line) const
{
    const int lines = std::max({m_text.lineCount(line.left, m_pageWidth), m_text.lineCount(line.centre, m_pageWidth),
        m_text.lineCount(line.right, m_pageWidth)});
    return lines * m_text.lineHeight();
}

double GridPrintLayout::linesHeight(const QList<PageTextLine> &lines) const
{
    double height = 0;
    for (const PageTextLine &line : lines) {
        height += lineHeight(line);
    }
    return std::min(height, m_pageHeight / 4);
}

PrintPages GridPrintLayout::breakPages(const PrintArea &area) const
{
    if (m_columns.isEmpty()) {
        return {{}, {}};
    }
    const auto widthOf = [this](int position) { return m_columns.at(position).width; };
    const PrintSpan positions{m_isFirstRepeated ? 1 : 0, int(m_columns.size()) - 1};
    return {spansThatFit(area.rows, m_maxRowHeight, [this](int row) { return rowHeight(row); }),
        spansThatFit(positions, m_pageWidth - m_rowNumberWidth - repeatedWidth(), widthOf)};
}

QList<PaperColumn> GridPrintLayout::columnsOn(int page) const
{
    const PrintSpan positions = m_pages.columns(page);
    QList<PaperColumn> columns = m_columns.sliced(positions.first, positions.last - positions.first + 1);
    if (m_isFirstRepeated) {
        columns.prepend(m_columns.constFirst());
    }
    return columns;
}
