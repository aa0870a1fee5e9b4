#pragma once

#include "print/PaperText.h"
#include "print/PrintArea.h"

/// A column on the paper.
struct PaperColumn
{
    int column; ///< in the grid, from 1
    double width; ///< device units
    Qt::Alignment alignment;
};

/// The layout of a grid on pages of paper, in the paper's device units. Widths and heights are those of the grid, in
/// proportion to the font. A text that is too long for its column is wrapped, so that nothing is hidden that can be
/// read on the screen. A frozen column, which says what a row is about, is on every page.
class GridPrintLayout
{
public:
    GridPrintLayout(
        const SpreadGrid &grid, const PrintArea &area, const GridPrintOptions &options, QPaintDevice &paper);

    const SpreadGrid &grid() const { return m_grid; }
    const PaperText &text() const { return m_text; }
    const PrintPages &pages() const { return m_pages; }
    /// The columns on a page (from 1), from left to right.
    QList<PaperColumn> columnsOn(int page) const;

    double pageWidth() const { return m_pageWidth; }
    double pageHeight() const { return m_pageHeight; }
    double rowNumberWidth() const { return m_rowNumberWidth; }
    double headingHeight() const { return m_headingHeight; }
    double rowHeight(int row) const;
    /// Where the table begins, below the header.
    double tableTop() const { return m_headerHeight; }
    /// The distance between a cell's edge and its text.
    double padding() const { return m_text.characterWidth() * 0.4; }
    double lineWidth() const { return m_lineWidth; }
    /// Height of a line of a header or footer, wrapped to the page's width.
    double lineHeight(const PageTextLine &line) const;
    /// Height of a header or footer; a quarter of the page at most.
    double linesHeight(const QList<PageTextLine> &lines) const;

private:
    double scaledWidth(int pixels) const { return pixels * m_scaleX; }
    double columnWidth(int column) const;
    bool isFirstRepeated(const PrintArea &area) const;
    double repeatedWidth() const { return m_isFirstRepeated ? m_columns.constFirst().width : 0; }
    double findRowNumberWidth(const PrintArea &area) const;
    double findHeadingHeight() const;
    double textHeight(int lines) const { return lines * m_text.lineHeight() + 2 * m_lineWidth; }
    PrintPages breakPages(const PrintArea &area) const;

    const SpreadGrid &m_grid;
    PaperText m_text;
    double m_pageWidth;
    double m_pageHeight;
    double m_scaleX; ///< a pixel's width on the paper
    double m_scaleY;
    double m_lineWidth;
    double m_headerHeight;
    double m_footerHeight;
    double m_rowNumberWidth = 0;
    double m_headingHeight = 0;
    double m_maxRowHeight = 0; ///< the space below the headings of a page
    QList<PaperColumn> m_columns;
    bool m_isFirstRepeated = false; ///< on every page
    PrintPages m_pages;
};
