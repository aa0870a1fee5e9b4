#pragma once

#include "grid/SpreadGrid.h"

#include <QPainter>
#include <QWidget>

#include <array>
#include <vector>

inline constexpr int benchColumnCount = 13;
using PlainRow = std::array<QString, benchColumnCount>;
using PlainRows = std::vector<PlainRow>;

/// The same cells as a grid shows, painted as plain texts and nothing else.
class PlainPage : public QWidget
{
public:
    PlainPage(const SpreadGrid &grid, const PlainRows &rows) : m_grid(grid), m_rows(rows)
    {
        resize(grid.viewport()->size());
    }
    void setTopRow(int row) { m_top = row; }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.setFont(m_grid.gridFont());
        painter.fillRect(rect(), palette().base());
        const auto rowCount = int(m_rows.size());
        for (int row = m_top, y = 0; y < height() && row <= rowCount; ++row, y += m_grid.rowHeight(0)) {
            for (int column = 1, x = 0; column <= benchColumnCount && x < width(); ++column) {
                const QRect cell(x, y, m_grid.columnWidth(column - 1), m_grid.rowHeight(0));
                painter.drawText(
                    cell, Qt::AlignVCenter | Qt::TextSingleLine, m_rows[size_t(row - 1)][size_t(column - 1)]);
                x += cell.width();
            }
        }
    }

private:
    const SpreadGrid &m_grid;
    const PlainRows &m_rows;
    int m_top = 1;
};
