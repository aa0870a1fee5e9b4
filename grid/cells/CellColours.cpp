#include "grid/cells/CellColours.h"

#include <algorithm>
#include <limits>

void CellColours::resize(int columns, int rows)
{
    if (!m_indexes.empty()) {
        if (columns != m_columns) {
            std::vector<quint8> indexes(size_t(columns) * size_t(m_rows));
            for (int row = 0; row < m_rows; ++row) {
                std::copy_n(m_indexes.begin() + qptrdiff(offsetOf(0, row)), std::min(columns, m_columns),
                    indexes.begin() + qptrdiff(row) * columns);
            }
            m_indexes = std::move(indexes);
        }
        m_indexes.resize(size_t(columns) * size_t(rows));
    }
    m_columns = columns;
    m_rows = rows;
}

void CellColours::fill(int column1, int row1, int column2, int row2, const QColor &colour)
{
    if (m_indexes.empty() && !colour.isValid()) {
        return;
    }
    allocate();
    const quint8 index = paletteIndex(colour);
    for (int row = row1; row <= row2; ++row) {
        std::fill_n(m_indexes.begin() + qptrdiff(offsetOf(column1, row)), column2 - column1 + 1, index);
    }
}

void CellColours::allocate()
{
    if (m_indexes.empty()) {
        m_indexes.resize(size_t(m_columns) * size_t(m_rows));
    }
}

std::vector<quint8> CellColours::kept(int column1, int row1, int column2, int row2) const
{
    if (m_indexes.empty()) {
        return {};
    }
    const int width = column2 - column1 + 1;
    std::vector<quint8> indexes(size_t(width) * size_t(row2 - row1 + 1));
    auto out = indexes.begin();
    for (int row = row1; row <= row2; ++row) {
        out = std::copy_n(m_indexes.begin() + qptrdiff(offsetOf(column1, row)), width, out);
    }
    return indexes;
}

void CellColours::exchange(int column1, int row1, int column2, int row2, std::vector<quint8> &kept)
{
    if (kept.empty() && m_indexes.empty()) {
        return;
    }
    allocate();
    const int width = column2 - column1 + 1;
    kept.resize(size_t(width) * size_t(row2 - row1 + 1)); // none kept: no colours
    auto other = kept.begin();
    for (int row = row1; row <= row2; ++row, other += width) {
        std::swap_ranges(other, other + width, m_indexes.begin() + qptrdiff(offsetOf(column1, row)));
    }
}

bool CellColours::isColoured(int row) const
{
    if (m_indexes.empty()) {
        return false;
    }
    const auto begin = m_indexes.begin() + qptrdiff(offsetOf(0, row));
    return std::any_of(begin, begin + m_columns, [](quint8 index) { return index != 0; });
}

QColor CellColours::colour(int column, int row) const
{
    return m_indexes.empty() ? QColor() : m_palette[m_indexes[offsetOf(column, row)]];
}

quint8 CellColours::paletteIndex(const QColor &colour)
{
    const auto found = std::ranges::find(m_palette, colour);
    if (found != m_palette.end()) {
        return quint8(found - m_palette.begin());
    }
    if (m_palette.size() <= std::numeric_limits<quint8>::max()) {
        m_palette.push_back(colour);
    }
    return quint8(m_palette.size() - 1);
}
