#include "editor/RecoveryCells.h"

#include "editor/ParameterGrid.h"
#include "grid/RedrawOff.h"
#include "grid/SpreadGrid.h"

#include <array>

RecoveryCells::RecoveryCells(const SpreadGrid &grid) : m_grid(grid), m_typed(grid.textBeingTyped())
{
}

int RecoveryCells::rowCount() const
{
    return m_grid.rowCount();
}

QStringView RecoveryCells::cellText(int column, int row) const
{
    return isTyped(column, row) ? QStringView(*m_typed) : m_grid.cellText(column, row);
}

bool RecoveryCells::isCellChanged(int column, int row) const
{
    return isTyped(column, row) || m_grid.textColour(column, row).isValid();
}

bool RecoveryCells::isTyped(int column, int row) const
{
    return m_typed && row == m_grid.activeRow() && column == m_grid.activeColumn();
}

namespace {

void restoreColours(SpreadGrid &grid, int row, quint32 changedColumns)
{
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        if ((changedColumns >> column & 1U) != 0) {
            grid.setTextColour({column, row, column, row}, QColor(changedCellColour));
        }
    }
}

} // namespace

void restoreCells(SpreadGrid &grid, const RecoveryCopy &copy)
{
    const RedrawOff redrawOff(grid);
    int row = 0;
    for (const RecoveredRow &kept : copy.rows) {
        ++row;
        std::array<QStringView, ParameterColumn::Count> texts;
        std::copy(kept.texts.begin(), kept.texts.end(), texts.begin());
        grid.setRowTexts(row, texts);
        grid.fitRowHeight(row);
        restoreColours(grid, row, kept.changedColumns);
    }
}
