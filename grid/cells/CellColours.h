#pragma once

#include <QColor>

#include <vector>

/// The text colours of the cells. They belong to the positions in the grid, not to the texts: a text that moves leaves
/// its colour behind. One byte per cell, and none at all before the first colour is set. Columns and rows count from 0.
/// At most 255 different colours; further ones are shown as the last of them.
class CellColours
{
public:
    /// Cells that are added have no colour.
    void resize(int columns, int rows);
    /// All cells from column1, row1 to column2, row2, which must be inside. An invalid colour removes theirs.
    void fill(int column1, int row1, int column2, int row2, const QColor &colour);
    /// The colours of those cells, for exchange(); empty if no cell of the grid has one.
    std::vector<quint8> kept(int column1, int row1, int column2, int row2) const;
    /// Swaps the colours of those cells with those that kept() returned.
    void exchange(int column1, int row1, int column2, int row2, std::vector<quint8> &kept);
    /// Whether any cell of the row has a colour.
    bool isColoured(int row) const;
    /// Invalid if no colour is set.
    QColor colour(int column, int row) const;

private:
    void allocate();
    quint8 paletteIndex(const QColor &colour);
    size_t offsetOf(int column, int row) const { return size_t(row) * size_t(m_columns) + size_t(column); }

    int m_columns = 0;
    int m_rows = 0;
    std::vector<QColor> m_palette = {QColor()};
    std::vector<quint8> m_indexes;
};
