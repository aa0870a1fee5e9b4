#include "editor/ParameterGrid.h"

#include "app/Language.h"
#include "app/Settings.h"
#include "document/DocumentTables.h"
#include "document/RecordTexts.h"
#include "platform/RedrawOff.h"
#include "platform/SpreadGrid.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr double fitted = 0; // as wide as the header's text
constexpr qint16 headerTextId = 100;
constexpr int conditionTextLength = 100;

struct ColumnLayout
{
    int column;
    CellType type;
    Qt::Alignment alignment;
    double width; ///< character units
};

const std::array<ColumnLayout, ParameterColumn::Count> &columnLayouts()
{
    const auto step = [] { return CellType::comboBox({u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s}); };
    using namespace ParameterColumn;
    static const std::array<ColumnLayout, Count> layouts{{
        {Number, CellType::integer(0, 1000), Qt::AlignCenter, 4},
        {Name, CellType::text(), Qt::AlignLeft | Qt::AlignVCenter, 25},
        {ParameterColumn::SettingRange, CellType::text(conditionTextLength), Qt::AlignLeft | Qt::AlignVCenter, 20},
        {RangeCheck, CellType::checkBox(), Qt::AlignCenter, fitted},
        {Min1, step(), Qt::AlignCenter, 7},
        {Min2, step(), Qt::AlignCenter, 7},
        {Min3, step(), Qt::AlignCenter, 7},
        {Unit, CellType::text(), Qt::AlignCenter, 6},
        {FactorySetting, CellType::text(), Qt::AlignCenter, fitted},
        {HelpId, CellType::integer(0, 32767), Qt::AlignCenter, fitted},
        {FuncCode, CellType::text(), Qt::AlignCenter, fitted},
        {ConditionCount, CellType::integer(0, 9), Qt::AlignCenter, fitted},
        {Condition, CellType::text(conditionTextLength), Qt::AlignLeft | Qt::AlignVCenter, 20},
    }};
    return layouts;
}

void layOutColumn(SpreadGrid &grid, const ColumnLayout &layout)
{
    grid.setCellType(layout.column, -1, layout.type);
    grid.setText(layout.column, 0, ResString(headerTextId + qint16(layout.column)));
    grid.setAlignment(layout.column, layout.alignment);
    if (layout.width == fitted) {
        grid.fitColumnWidth(layout.column);
    } else {
        grid.setWidthInCharacters(layout.column, layout.width);
    }
}

bool hasLineBreak(QStringView text)
{
    return std::ranges::any_of(text, [](QChar character) { return character == u'\n' || character == u'\r'; });
}

void fillRow(SpreadGrid &grid, int index)
{
    const RecordTexts texts(PrRecords.at(index));
    const auto &cells = texts.cells();
    const int row = index + 1;
    grid.setRowTexts(row, cells);
    if (std::ranges::any_of(cells, hasLineBreak)) {
        grid.fitRowHeight(row);
    }
}

} // namespace

void layOutParameterGrid(SpreadGrid &grid, int rows)
{
    grid.setColumnCount(ParameterColumn::Count);
    grid.setFrozenColumns(1);
    grid.setText(0, 0, ResString(headerTextId));
    grid.setAlignment(0, Qt::AlignCenter);
    grid.setWidthInCharacters(0, 4);
    for (const ColumnLayout &layout : columnLayouts()) {
        layOutColumn(grid, layout);
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
    const RedrawOff redrawOff(grid);
    const int rows = std::min(grid.rowCount(), int(PrRecords.size()));
    for (int index = 0; index < rows; ++index) {
        fillRow(grid, index);
    }
}

void resetParameterRow(SpreadGrid &grid, int row)
{
    constexpr QStringView texts[] = {u"", u"", u"", u"0", u"No", u"No", u"No", u"", u"", u"0", u"0000", u"0"};
    grid.setRowTexts(row, texts);
}
