#include "document/CollectPrRecords.h"

#include "document/DocumentTables.h"
#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "document/TextPool.h"
#include "runtime/NumberText.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// The grid's columns, as far as they are collected.
enum Column {
    NumberColumn = 1,
    NameColumn,
    RangesColumn,
    RangeCheckColumn,
    Min1Column,
    Min2Column,
    Min3Column,
    UnitColumn,
    FactoryColumn,
    HelpIdColumn,
    FunctionCodeColumn,
    ConditionsColumn = 13
};

struct TextField
{
    Column column;
    QString PrRecord::*field;
};
constexpr TextField plainFields[] = {{NumberColumn, &PrRecord::number}, {NameColumn, &PrRecord::name},
    {UnitColumn, &PrRecord::unit}, {HelpIdColumn, &PrRecord::helpId}};

struct IncrementField
{
    Column column;
    QString PrRecord::*field;
    QLatin1StringView otherwise; ///< stored for "No" and for an empty cell
};
constexpr IncrementField incrementFields[] = {{Min1Column, &PrRecord::min1, "1"_L1},
    {Min2Column, &PrRecord::min2, "-1"_L1}, {Min3Column, &PrRecord::min3, "-1"_L1}};
constexpr QLatin1StringView increments[] = {"1"_L1, "0.1"_L1, "0.01"_L1, "0.001"_L1};

/// Turns grid rows into records.
class Collector
{
public:
    explicit Collector(const PrGrid &grid) : m_grid(grid) { }

    std::optional<RunTimeError> collect(int row, PrRecord &record);

private:
    void collectIncrement(const IncrementField &increment, int row, PrRecord &record);
    std::optional<RunTimeError> collectRanges(int row, PrRecord &record) const;
    std::optional<RunTimeError> collectFunctionCode(int row, PrRecord &record);
    std::optional<RunTimeError> collectConditions(int row, PrRecord &record) const;

    const PrGrid &m_grid;
    TextPool m_pool;
};

std::optional<RunTimeError> Collector::collect(int row, PrRecord &record)
{
    for (const TextField &plain : plainFields) {
        record.*plain.field = m_pool.share(m_grid.cellText(plain.column, row));
    }
    for (const IncrementField &increment : incrementFields) {
        collectIncrement(increment, row, record);
    }
    const QStringView checked = m_grid.cellText(RangeCheckColumn, row);
    record.rangeCheck = m_pool.share(checked.isEmpty() ? QStringView(u"0") : checked);
    record.factorySetting = m_pool.share(NormalizeNumText(m_grid.cellText(FactoryColumn, row)));
    if (const auto error = collectRanges(row, record)) {
        return error;
    }
    if (const auto error = collectFunctionCode(row, record)) {
        return error;
    }
    return collectConditions(row, record);
}

void Collector::collectIncrement(const IncrementField &increment, int row, PrRecord &record)
{
    const QStringView cell = m_grid.cellText(increment.column, row);
    const bool isIncrement = std::ranges::any_of(increments, [cell](QLatin1StringView step) { return cell == step; });
    record.*increment.field = isIncrement ? m_pool.share(cell) : m_pool.share(increment.otherwise);
}

std::optional<RunTimeError> Collector::collectRanges(int row, PrRecord &record) const
{
    auto converted = rangesFromText(m_grid.cellText(RangesColumn, row));
    if (const auto *error = std::get_if<RunTimeError>(&converted)) {
        return *error;
    }
    record.ranges = std::get<QList<SettingRange>>(std::move(converted));
    record.rangeCount = static_cast<qint16>(record.ranges.size());
    return std::nullopt;
}

std::optional<RunTimeError> Collector::collectFunctionCode(int row, PrRecord &record)
{
    const auto converted = hexToInt16(m_grid.cellText(FunctionCodeColumn, row));
    if (const auto *error = std::get_if<RunTimeError>(&converted)) {
        return *error;
    }
    record.functionCode = m_pool.share(QString::number(std::get<qint16>(converted)));
    return std::nullopt;
}

std::optional<RunTimeError> Collector::collectConditions(int row, PrRecord &record) const
{
    record.conditions = conditionsFromText(m_grid.cellText(ConditionsColumn, row));
    if (record.conditions.size() > std::numeric_limits<qint16>::max()) {
        return RunTimeError::Overflow;
    }
    record.conditionCount = static_cast<qint16>(record.conditions.size());
    return std::nullopt;
}

} // namespace

std::optional<RunTimeError> CollectPrRecords(const PrGrid &grid)
{
    QList<PrRecord> records(grid.rowCount());
    Collector collector(grid);
    for (int i = 0; i < records.size(); ++i) {
        if (const auto error = collector.collect(i + 1, records[i])) {
            return error;
        }
    }
    PrRecords = std::move(records);
    return std::nullopt;
}
