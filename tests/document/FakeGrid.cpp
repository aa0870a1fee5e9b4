#include "tests/document/FakeGrid.h"

#include "document/FieldText.h"
#include "document/PrCondText.h"

using namespace Qt::StringLiterals;

namespace {

QString incrementCell(const QString &stored)
{
    return stored == u"-1"_s ? u"No"_s : stored;
}

QString functionCodeCell(const QString &stored)
{
    return QString::number(static_cast<quint16>(stored.toInt()), 16).toUpper().rightJustified(4, u'0');
}

QStringList cells(const PrRecord &record)
{
    return {record.number, record.name, rangesToText(record.ranges), record.rangeCheck, incrementCell(record.min1),
        incrementCell(record.min2), incrementCell(record.min3), record.unit, record.factorySetting, record.helpId,
        functionCodeCell(record.functionCode), QString::number(record.conditionCount),
        conditionsToText(record.conditions)};
}

} // namespace

FakeGrid::FakeGrid(const QList<PrRecord> &records, qsizetype count)
{
    for (const PrRecord &record : records.first(count)) {
        rows << cells(record);
    }
}

QStringList FakeGrid::emptyRow()
{
    QStringList row;
    row.resize(columns);
    return row;
}
