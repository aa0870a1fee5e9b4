#include "document/RecordCollector.h"

#include "document/ParameterColumns.h"

std::optional<RunTimeError> RecordCollector::collect(int row, PrRecord &record)
{
    for (const ColumnInfo &column : parameterColumns) {
        if (!column.collect(column, m_grid.cellText(column.column, row), record, m_pool)) {
            return RunTimeError::Overflow;
        }
    }
    return std::nullopt;
}
