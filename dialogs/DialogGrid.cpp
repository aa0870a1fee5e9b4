#include "dialogs/DialogGrid.h"

#include "app/Common.h"
#include "platform/SpreadGrid.h"

#include <QHeaderView>
#include <QScrollBar>

namespace DialogGrid {

namespace {

constexpr int visibleRows = 5;

// The grid does not scroll sideways, and shows some rows, however small the user makes the dialog.
void setMinimumExtent(SpreadGrid &grid)
{
    const int frame = 2 * grid.frameWidth();
    const int columns = grid.verticalHeader()->sizeHint().width() + grid.horizontalHeader()->length();
    const int rows =
        grid.horizontalHeader()->sizeHint().height() + visibleRows * grid.verticalHeader()->defaultSectionSize();
    grid.setMinimumSize(columns + grid.verticalScrollBar()->sizeHint().width() + frame, rows + frame);
}

} // namespace

void layOut(SpreadGrid &grid, const QList<Column> &columns)
{
    grid.setTabKeyNavigation(false);
    grid.setGridFont(userFont());
    grid.setRowCount(0);
    grid.setColumnCount(static_cast<int>(columns.size()));
    int number = 0;
    for (const Column &column : columns) {
        ++number;
        grid.setText(number, 0, column.heading);
        grid.setCellType(number, -1, column.type);
        grid.setWidthInCharacters(number, column.width);
    }
    grid.fitRowHeight(0);
    setMinimumExtent(grid);
}

void addRow(SpreadGrid &grid)
{
    grid.setRowCount(grid.rowCount() + 1);
    ensureActiveCell(grid);
    grid.scrollToBottom();
}

void removeActiveRow(SpreadGrid &grid)
{
    const int active = grid.activeRow();
    const int last = grid.rowCount();
    if (active < 1) {
        return;
    }
    if (active < last) {
        grid.moveRowTexts(active + 1, last, active);
    }
    grid.setRowCount(last - 1);
    ensureActiveCell(grid);
}

void ensureActiveCell(SpreadGrid &grid)
{
    if (grid.activeRow() < 1 && grid.rowCount() > 0) {
        grid.setActiveCell(1, 1);
    }
}

} // namespace DialogGrid
