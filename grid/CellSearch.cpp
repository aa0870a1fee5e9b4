#include "grid/CellSearch.h"

#include "grid/cells/CellWalk.h"
#include "grid/cells/SpreadModel.h"

#include <QTableView>

void CellSearch::setText(const QString &text)
{
    m_matcher.setPattern(text);
}

bool CellSearch::isFound(int column, int row) const
{
    return !m_matcher.isEmpty() && !m_view.isColumnHidden(column - 1)
        && m_model.cellType(column, row).kind != CellType::Kind::CheckBox && m_matcher.isIn(m_model.text(column, row));
}

// One look at all texts of a row rules out most rows.
bool CellSearch::mayBeInRow(int row) const
{
    return m_matcher.isIn(m_model.rowTexts(row));
}

std::optional<QPoint> CellSearch::next(QPoint from, int step) const
{
    if (m_matcher.isEmpty()) {
        return std::nullopt;
    }
    return nextCell(
        {m_model.columnCount(), m_model.rowCount()}, from, step, [this](int row) { return mayBeInRow(row); },
        [this](int column, int row) { return isFound(column, row); });
}

CellSearch::Count CellSearch::count(QPoint cell) const
{
    Count count;
    const int rows = m_matcher.isEmpty() ? 0 : m_model.rowCount();
    for (int row = 1; row <= rows; ++row) {
        const int columns = mayBeInRow(row) ? m_model.columnCount() : 0;
        for (int column = 1; column <= columns; ++column) {
            if (isFound(column, row)) {
                ++count.all;
                count.number = QPoint(column, row) == cell ? count.all : count.number;
            }
        }
    }
    return count;
}
