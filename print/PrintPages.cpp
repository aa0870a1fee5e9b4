#include "print/PrintPages.h"

#include <algorithm>

QList<PrintSpan> spansThatFit(const PrintSpan &items, double available, const std::function<double(int)> &sizeOf)
{
    QList<PrintSpan> spans;
    double used = 0;
    for (int item = items.first; item <= items.last; ++item) {
        const double size = sizeOf(item);
        if (spans.isEmpty() || used + size > available) {
            spans.append({item, item});
            used = 0;
        }
        spans.last().last = item;
        used += size;
    }
    return spans;
}

PrintSpan pagesInRange(int from, int to, int pageCount)
{
    const int first = std::max(from, 1);
    const int last = to > 0 ? to : first;
    return {first, std::min(last, pageCount)};
}

PrintPages::PrintPages(QList<PrintSpan> rows, QList<PrintSpan> columns)
    : m_rows(std::move(rows)), m_columns(std::move(columns))
{
    if (m_rows.isEmpty()) {
        m_rows.append(PrintSpan{});
    }
}

int PrintPages::count() const
{
    return int(m_rows.size() * m_columns.size());
}

PrintSpan PrintPages::rows(int page) const
{
    return m_rows.at((page - 1) % m_rows.size());
}

PrintSpan PrintPages::columns(int page) const
{
    return m_columns.at((page - 1) / m_rows.size());
}
