#include "document/RecordCollector.h"

#include "document/FieldText.h"
#include "document/ParameterColumn.h"
#include "document/PrCondText.h"
#include "document/PrRecord.h"
#include "runtime/NumberText.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct TextField
{
    int column;
    QString PrRecord::*field;
};
constexpr TextField plainFields[] = {{ParameterColumn::Number, &PrRecord::number},
    {ParameterColumn::Name, &PrRecord::name}, {ParameterColumn::Unit, &PrRecord::unit},
    {ParameterColumn::HelpId, &PrRecord::helpId}};

struct IncrementField
{
    int column;
    QString PrRecord::*field;
    QLatin1StringView otherwise; ///< stored for "No" and for an empty cell
};
constexpr IncrementField incrementFields[] = {{ParameterColumn::Min1, &PrRecord::min1, "1"_L1},
    {ParameterColumn::Min2, &PrRecord::min2, "-1"_L1}, {ParameterColumn::Min3, &PrRecord::min3, "-1"_L1}};
constexpr QLatin1StringView increments[] = {"1"_L1, "0.1"_L1, "0.01"_L1, "0.001"_L1};

/// What a check box with that text shows. Any text can be pasted into it, but a file knows no other values.
QStringView checkBoxValue(QStringView cell)
{
    const bool ticked = cell == "1"_L1 || (cell != "0"_L1 && numericValue(cell).value_or(0) != 0);
    return ticked ? u"1" : u"0";
}

} // namespace

template <typename View>
void RecordCollector::assign(QString &field, View text)
{
    if (field != text) {
        field = m_pool.share(text);
    }
}

std::optional<RunTimeError> RecordCollector::collect(int row, PrRecord &record)
{
    for (const TextField &plain : plainFields) {
        assign(record.*plain.field, m_grid.cellText(plain.column, row));
    }
    collectIncrements(row, record);
    assign(record.rangeCheck, checkBoxValue(m_grid.cellText(ParameterColumn::RangeCheck, row)));
    collectFactorySetting(m_grid.cellText(ParameterColumn::FactorySetting, row), record);
    if (const auto error = collectRanges(row, record)) {
        return error;
    }
    if (const auto error = collectFunctionCode(row, record)) {
        return error;
    }
    return collectConditions(row, record);
}

void RecordCollector::collectIncrements(int row, PrRecord &record)
{
    for (const IncrementField &increment : incrementFields) {
        const QStringView cell = m_grid.cellText(increment.column, row);
        const auto *step = std::ranges::find_if(increments, [cell](QLatin1StringView known) { return cell == known; });
        assign(record.*increment.field, step != std::end(increments) ? *step : increment.otherwise);
    }
}

void RecordCollector::collectFactorySetting(QStringView cell, PrRecord &record)
{
    if (isNormalizedNum(cell)) {
        assign(record.factorySetting, cell);
    } else {
        assign(record.factorySetting, QStringView(NormalizeNumText(cell)));
    }
}

std::optional<RunTimeError> RecordCollector::collectRanges(int row, PrRecord &record) const
{
    const auto error = parseRanges(m_grid.cellText(ParameterColumn::SettingRange, row), record.ranges);
    record.rangeCount = error ? qint16(0) : static_cast<qint16>(record.ranges.size());
    return error;
}

std::optional<RunTimeError> RecordCollector::collectFunctionCode(int row, PrRecord &record)
{
    const auto converted = hexToInt16(m_grid.cellText(ParameterColumn::FuncCode, row));
    if (const auto *error = std::get_if<RunTimeError>(&converted)) {
        return *error;
    }
    char digits[numberTextLength];
    const auto written = std::to_chars(digits, std::end(digits), std::get<qint16>(converted));
    assign(record.functionCode, QLatin1StringView(digits, written.ptr - digits));
    return std::nullopt;
}

std::optional<RunTimeError> RecordCollector::collectConditions(int row, PrRecord &record) const
{
    record.conditions = conditionsFromText(m_grid.cellText(ParameterColumn::Condition, row));
    if (record.conditions.size() > std::numeric_limits<qint16>::max()) {
        record.conditionCount = 0;
        return RunTimeError::Overflow;
    }
    record.conditionCount = static_cast<qint16>(record.conditions.size());
    return std::nullopt;
}
