#include "check/ParameterIndex.h"

#include "check/NumberKey.h"

ParameterIndex::ParameterIndex(const QList<PrRecord> &rows) : m_rows(rows)
{
    m_numbers.reserve(rows.size());
    m_helpIds.reserve(rows.size());
    for (int row = int(rows.size()) - 1; row >= 0; --row) { // the first of equal ones stays
        m_numbers.insert(numberKey(rows[row].number), row);
        m_helpIds.insert(rows[row].helpId, row);
    }
}

int ParameterIndex::rowOf(const QString &number) const
{
    return m_numbers.value(numberKey(number), -1);
}
