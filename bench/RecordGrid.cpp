#include "bench/RecordGrid.h"

#include "document/FieldText.h"
#include "document/PrCondText.h"

using namespace Qt::StringLiterals;

namespace {

QString incrementCell(const QString &stored)
{
    return stored == u"-1"_s ? u"No"_s : stored;
}

QStringList cells(const PrRecord &record)
{
    const auto code = static_cast<quint16>(record.functionCode.toInt());
    return {record.number, record.name, rangesToText(record.ranges), record.rangeCheck, incrementCell(record.min1),
        incrementCell(record.min2), incrementCell(record.min3), record.unit, record.factorySetting, record.helpId,
        QString::number(code, 16).toUpper().rightJustified(4, u'0'), QString::number(record.conditionCount),
        conditionsToText(record.conditions)};
}

} // namespace

RecordGrid::RecordGrid(const QList<PrRecord> &records, int count)
{
    for (const PrRecord &record : records.first(count)) {
        m_rows << cells(record);
    }
}
