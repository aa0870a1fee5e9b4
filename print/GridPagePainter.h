#pragma once

#include "print/GridPrintLayout.h"

class QPainter;

/// Paints the pages of a printed grid.
class GridPagePainter
{
public:
    GridPagePainter(const GridPrintLayout &layout, const GridPrintOptions &options, QPainter &painter);

    /// Pages count from 1. The painter must be on an empty page.
    void paintPage(int page);

private:
    void paintLines(const QList<PageTextLine> &lines, double top);
    void paintTable(const QList<PaperColumn> &columns, const PrintSpan &rows);
    void appendRow(QList<QRectF> &first, QList<QRectF> &others, double top, double height,
        const QList<PaperColumn> &columns) const;
    void paintHeadings(const QList<QRectF> &cells);
    void paintHeadingText(const QRectF &cell, int column, int row);
    void paintContent(const QRectF &area, const PaperColumn &column, int row);
    void paintCheckBox(const QRectF &inner, Qt::Alignment alignment, bool ticked, const QString &caption);
    void paintTick(const QRectF &box);
    QRectF inner(const QRectF &cell) const;
    QColor inkOf(int column, int row) const;

    const GridPrintLayout &m_layout;
    const GridPrintOptions &m_options;
    QPainter &m_painter;
};
