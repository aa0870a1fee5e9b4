#include "document/RowCollector.h"

#include "document/ParameterColumns.h"

RowFields fieldsOf(const PrRecord &record)
{
    RowFields fields{.conditionCount = record.conditionCount,
        .texts = {},
        .rangeCount = record.rangeCount,
        .ranges = {record.ranges.data(), std::size_t(record.ranges.size())},
        .conditions = {record.conditions.data(), std::size_t(record.conditions.size())}};
    for (std::size_t i = 0; i < fileTexts.size(); ++i) {
        fields.texts[i] = record.*fileTexts[i];
    }
    return fields;
}

Result<> RowCollector::collect(int row)
{
    for (const ColumnInfo &column : parameterColumns) {
        if (!column.collect(column, m_grid.cellText(column.column, row), m_row)) {
            return FailureCode::Overflow;
        }
    }
    return {};
}
