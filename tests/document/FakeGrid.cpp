#include "tests/document/FakeGrid.h"

#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "document/RecordTexts.h"

FakeGrid::FakeGrid(const QList<PrRecord> &records, qsizetype count)
{
    for (const PrRecord &record : records.first(count)) {
        const RecordTexts texts(record, rangesToText(record.ranges), conditionsToText(record.conditions));
        QStringList row;
        for (const QStringView cell : texts.cells()) {
            row << cell.toString();
        }
        rows << row;
    }
}

QStringList FakeGrid::emptyRow()
{
    QStringList row;
    row.resize(columns);
    return row;
}
