#include "bench/RecordGrid.h"

#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "document/RecordTexts.h"

RecordGrid::RecordGrid(const QList<PrRecord> &records, int count)
{
    for (const PrRecord &record : records.first(count)) {
        const RecordTexts texts(record, rangesToText(record.ranges), conditionsToText(record.conditions));
        QStringList row;
        for (const QStringView cell : texts.cells()) {
            row << cell.toString();
        }
        m_rows << row;
    }
}
