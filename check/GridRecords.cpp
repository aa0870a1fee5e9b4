#include "check/GridRecords.h"

#include "check/SavedForm.h"
#include "document/ParameterColumns.h"

using namespace Qt::StringLiterals;

namespace {

/// Which of the row's fields in the file, from 1, would hold the number: the first bound, or the count of conditions.
int positionInFile(const ColumnInfo &column)
{
    constexpr int firstBound = RowFields::textCount + 3;
    return column.field != nullptr                       ? column.fileField + 1
        : column.column == ParameterColumn::SettingRange ? firstBound
                                                         : 1;
}

void clear(const ColumnInfo &column, RowFields &fields)
{
    if (column.field != nullptr) {
        fields.text(column.fileField) = u"0";
    } else if (column.column == ParameterColumn::SettingRange) {
        fields.rangeCount = 0;
        fields.ranges = {};
    } else {
        fields.conditionCount = 0;
        fields.conditions = {};
    }
}

} // namespace

const PrRecord &GridRecords::read(int row)
{
    m_overflows.clear();
    for (const ColumnInfo &column : parameterColumns) {
        if (!column.collect(column, m_grid.cellText(column.column, row), m_row)) {
            clear(column, m_row.fields);
            m_overflows.append({CheckId::NumberTooLarge, {.row = row, .column = column.column}, {},
                {QString::number(positionInFile(column)), u"0"_s}});
        }
    }
    takeFields(m_row.fields, m_record);
    for (Finding &finding : m_overflows) {
        finding.name = m_record.number;
    }
    return m_record;
}
