#include "check/ParameterIndex.h"

#include "check/NumberKey.h"

ParameterIndex::ParameterIndex(const QList<PrRecord> &rows) : m_rows(rows)
{
    for (int row = 0; row < rows.size(); ++row) {
        m_numbers.enter(numberKey(rows[row].number), row);
        m_helpIds.enter(rows[row].helpId, row);
    }
}

int ParameterIndex::rowOf(const QString &number) const
{
    return m_numbers.rowOf(numberKey(number));
}
