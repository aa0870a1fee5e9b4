#include "platform/CellSearch.h"

#include "platform/SpreadModel.h"

#include <QTableView>

void CellSearch::setText(const QString &text)
{
    m_matcher = QStringMatcher(text, Qt::CaseInsensitive);
}

bool CellSearch::isFound(int column, int row) const
{
    return !m_matcher.pattern().isEmpty() && !m_view.isColumnHidden(column - 1)
        && m_model.cellType(column, row).kind != CellType::Kind::CheckBox
        && m_matcher.indexIn(m_model.text(column, row)) >= 0;
}

// Most rows are passed over at one look at all their texts.
bool CellSearch::mayBeInRow(int row) const
{
    return m_matcher.indexIn(m_model.rowTexts(row)) >= 0;
}

// The first found column behind that one; 0 when there is none.
int CellSearch::columnInRow(int row, int column, int step) const
{
    for (int at = column + step; at >= 1 && at <= m_model.columnCount(); at += step) {
        if (isFound(at, row)) {
            return at;
        }
    }
    return 0;
}

std::optional<QPoint> CellSearch::next(QPoint from, int step) const
{
    const int rows = m_model.rowCount();
    const int beforeRow = step > 0 ? 0 : m_model.columnCount() + 1;
    if (rows == 0 || m_matcher.pattern().isEmpty()) {
        return std::nullopt;
    }
    // The row that the search begins in is looked at twice: behind the cell at first, and as a whole at the end.
    for (int passed = 0; passed <= rows; ++passed) {
        const int row = ((from.y() - 1 + step * passed) % rows + rows) % rows + 1;
        const int column = mayBeInRow(row) ? columnInRow(row, passed == 0 ? from.x() : beforeRow, step) : 0;
        if (column > 0) {
            return QPoint(column, row);
        }
    }
    return std::nullopt;
}
