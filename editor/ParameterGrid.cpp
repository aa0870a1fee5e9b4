#include "editor/ParameterGrid.h"

#include "app/Language.h"
#include "app/Settings.h"
#include "dialogs/FuncCodeText.h"
#include "document/DocumentTables.h"
#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "platform/RedrawOff.h"
#include "platform/SpreadGrid.h"
#include "runtime/NumberText.h"

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

/// The grid's text for a minimum step: a file says "-1" where there is none.
QStringView minimumText(const QString &stored)
{
    return stored == "-1"_L1 ? QStringView(u"No") : QStringView(stored);
}

/// The low sixteen bits of a stored code, which are what its four digits show.
qint16 storedFunctionCode(QStringView decimal)
{
    constexpr double limit = 1e15;
    return qint16(quint16(qint64(std::clamp(leadingNumber(decimal), -limit, limit))));
}

void fillRow(SpreadGrid &grid, int index)
{
    const PrRecord &record = PrRecords[index];
    const QString ranges = FormatSettingRange(index);
    const QString conditions = FormatPrCondText(index);
    const QString code = functionCodeText(storedFunctionCode(record.functionCode));
    const QString count = QString::number(record.conditionCount);
    const std::array<QStringView, ParameterColumn::Count> texts{record.number, record.name, ranges, record.rangeCheck,
        minimumText(record.min1), minimumText(record.min2), minimumText(record.min3), record.unit,
        record.factorySetting, record.helpId, code, count, conditions};
    const int row = index + 1;
    grid.setRowTexts(row, texts);
    const auto hasLineBreak = [](QStringView text) { return text.contains(u'\n') || text.contains(u'\r'); };
    if (std::any_of(texts.begin(), texts.end(), hasLineBreak)) {
        grid.fitRowHeight(row);
    }
}

} // namespace

void layOutParameterGrid(SpreadGrid &grid, int rows)
{
    grid.setColumnCount(ParameterColumn::Count);
    grid.setRowCount(rows);
    grid.setFrozenColumns(1);
    grid.setText(0, 0, ResString(headerTextId));
    grid.setAlignment(0, Qt::AlignCenter);
    grid.setWidthInCharacters(0, 4);
    for (const ColumnLayout &layout : columnLayouts()) {
        layOutColumn(grid, layout);
    }
    applyVisibleColumns(grid);
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
