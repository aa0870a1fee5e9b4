#include "tests/document/FakeGrid.h"

#include "document/RecordTexts.h"

FakeGrid::FakeGrid(const QList<PrRecord> &records, qsizetype count)
{
    for (const PrRecord &record : records.first(count)) {
        const RecordTexts texts(record);
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
