#pragma once

#include <QStringView>

#include <span>
#include <vector>

/// Splits a block text: cells joined by tabs, rows by CR LF, CR or LF. A line end at the very end does not begin
/// another row. An empty text is one row of one empty cell.
class BlockTextReader
{
public:
    /// text must outlive the reader.
    explicit BlockTextReader(QStringView text) : m_rest(text) { }

    /// Goes to the next row (the first call: to the first). False if there is none.
    bool nextRow();
    /// The cells of the current row, without a copy; valid until the next nextRow().
    std::span<const QStringView> cells() const { return m_cells; }
    /// The current row is the last one, and a line end follows it.
    bool isClosed() const { return m_atEnd && m_lineEnd; }

private:
    qsizetype readCells();

    QStringView m_rest;
    std::vector<QStringView> m_cells;
    bool m_atEnd = false;
    bool m_lineEnd = false;
};

namespace BlockText {

constexpr char16_t cellEnd = u'\t';
constexpr char16_t rowEnd[] = u"\r\n";

} // namespace BlockText
