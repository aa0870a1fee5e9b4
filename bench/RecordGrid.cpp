#include "bench/RecordGrid.h"

#include "document/RecordTexts.h"

RecordGrid::RecordGrid(const QList<PrRecord> &records, int count)
{
    for (const PrRecord &record : records.first(count)) {
        const RecordTexts texts(record);
        QStringList row;
        for (const QStringView cell : texts.cells()) {
            row << cell.toString();
        }
        m_rows << row;
    }
}
