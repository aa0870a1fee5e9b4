#include "document/RecordCollector.h"

#include "document/ParameterColumns.h"

Result<> RecordCollector::collect(int row, PrRecord &record)
{
    for (const ColumnInfo &column : parameterColumns) {
        if (!column.collect(column, m_grid.cellText(column.column, row), record, m_pool)) {
            return FailureCode::Overflow;
        }
    }
    return {};
}
