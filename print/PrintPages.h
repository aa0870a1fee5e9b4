#pragma once

#include <QList>

#include <functional>

/// Consecutive rows, columns or pages, both ends included; empty if last < first.
struct PrintSpan
{
    int first = 1;
    int last = 0;

    bool isEmpty() const { return last < first; }

    bool operator==(const PrintSpan &) const = default;
};

/// Breaks the items into spans whose sizes, sizeOf(item) added up, are not more than available. A span holds at least
/// one item: one that is too large has a span of its own. No items give no spans.
QList<PrintSpan> spansThatFit(const PrintSpan &items, double available, const std::function<double(int)> &sizeOf);

/// Which of pageCount pages a page range prints. from <= 0 (an empty box) means the first page, to <= 0 the single page
/// from. Pages that do not exist are left out; a range that ends before it begins has no pages.
PrintSpan pagesInRange(int from, int to, int pageCount);

/// The pages of a printed grid in printing order, numbered from 1: all rows of the first columns, then all rows of the
/// columns that did not fit beside them ("down, then over").
class PrintPages
{
public:
    /// Without rows there is one page for each span of columns, with the headings only.
    PrintPages(QList<PrintSpan> rows, QList<PrintSpan> columns);

    int count() const;
    PrintSpan rows(int page) const;
    PrintSpan columns(int page) const;

private:
    QList<PrintSpan> m_rows;
    QList<PrintSpan> m_columns;
};
