#include "document/RecordTexts.h"

#include "document/FieldText.h"
#include "document/PrCondText.h"

using namespace Qt::StringLiterals;

namespace {

/// The grid's text for a minimum step: a file says "-1" where there is none.
QStringView minimumText(const QString &stored)
{
    return stored == "-1"_L1 ? QStringView(u"No") : QStringView(stored);
}

} // namespace

RecordTexts::RecordTexts(const PrRecord &record)
    : m_ranges(settingRangeText(record))
    , m_functionCode(functionCodeText(storedFunctionCode(record.functionCode)))
    , m_conditionCount(QString::number(record.conditionCount))
    , m_conditions(conditionText(record))
    , m_cells{record.number, record.name, m_ranges, record.rangeCheck, minimumText(record.min1),
          minimumText(record.min2), minimumText(record.min3), record.unit, record.factorySetting, record.helpId,
          m_functionCode, m_conditionCount, m_conditions}
{
}
