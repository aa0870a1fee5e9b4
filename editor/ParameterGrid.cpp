#include "editor/ParameterGrid.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "app/services/Settings.h"
#include "document/DocumentTables.h"
#include "document/ParameterColumns.h"
#include "document/RecordTexts.h"
#include "grid/RedrawOff.h"
#include "grid/SpreadGrid.h"
#include "grid/cells/LineEnds.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

CellType cellType(const ColumnInfo &column)
{
    switch (column.kind) {
    case ColumnKind::Text:
        return column.limit > 0 ? CellType::text(column.limit) : CellType::text();
    case ColumnKind::Integer:
        return CellType::integer(0, column.limit);
    case ColumnKind::Increment:
        return CellType::comboBox({u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s}, {}, {u"No"_s});
    case ColumnKind::CheckBox:
        return CellType::checkBox();
    }
    return {};
}

void layOutColumn(SpreadGrid &grid, const ColumnInfo &column)
{
    grid.setCellType(column.column, -1, cellType(column));
    grid.setText(column.column, 0, captionText(column.heading));
    grid.setAlignment(column.column, column.isCentred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
    if (column.width > 0) {
        grid.setWidthInCharacters(column.column, column.width);
    } else {
        grid.fitColumnWidth(column.column);
    }
}

} // namespace

void layOutParameterGrid(SpreadGrid &grid, int rows)
{
    grid.setColumnCount(ParameterColumn::Count);
    grid.setFrozenColumns(1);
    grid.setText(0, 0, ResString(Text::HeadingRowNumber));
    grid.setAlignment(0, Qt::AlignCenter);
    grid.setWidthInCharacters(0, 4);
    for (const ColumnInfo &column : parameterColumns) {
        layOutColumn(grid, column);
    }
    applyVisibleColumns(grid);
    grid.setRowCount(rows); // last: a column that is fitted to its header need not look at them
}

void applyVisibleColumns(SpreadGrid &grid)
{
    for (int column = 1; column <= grid.columnCount(); ++column) {
        grid.setColumnShown(column, !ListVisualState[column - 1]);
    }
}

void fillParameterGrid(SpreadGrid &grid)
{
    std::vector<CellRow> rows;
    for (const PrRecord &record : std::as_const(PrRecords)) {
        rows.emplace_back(RecordTexts(record).cells());
    }
    fillParameterGrid(grid, rows);
}

void fillParameterGrid(SpreadGrid &grid, std::span<CellRow> rows)
{
    const RedrawOff redrawOff(grid);
    grid.exchangeRows(rows);
    int number = 0;
    for (const CellRow &row : grid.textRows()) {
        ++number;
        if (LineEnds::areIn(row.allTexts())) {
            grid.fitRowHeight(number);
        }
    }
}

void resetParameterRow(SpreadGrid &grid, int row)
{
    std::array<QStringView, ParameterColumn::Count> texts;
    int count = 0;
    for (const ColumnInfo &column : parameterColumns) {
        if (!column.newText.isNull()) {
            texts.at(count++) = column.newText;
        }
    }
    grid.setRowTexts(row, std::span(texts).first(count));
}
