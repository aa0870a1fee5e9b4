#include "document/TableTexts.h"

#include "document/DocumentTables.h"
#include "document/FieldText.h"
#include "document/PrCondText.h"

#include <algorithm>
#include <limits>

qint16 ParseSettingRange(int rowIndex, QStringView text)
{
    auto ranges = rangesFromText(text);
    if (!ranges || ranges->isEmpty()) {
        return 0;
    }
    PrRecords[rowIndex].ranges = std::move(*ranges);
    return static_cast<qint16>(PrRecords.at(rowIndex).ranges.size());
}

QString FormatSettingRange(int rowIndex)
{
    return settingRangeText(PrRecords.at(rowIndex));
}

qint16 ParsePrCondText(QStringView text)
{
    QList<PrCondition> conditions = conditionsFromText(text);
    if (conditions.isEmpty()) {
        return 0;
    }
    conditions.resize(std::min<qsizetype>(conditions.size(), std::numeric_limits<qint16>::max()));
    PrConditions.resize(std::max(PrConditions.size(), conditions.size() + 1));
    std::move(conditions.begin(), conditions.end(), PrConditions.begin());
    return static_cast<qint16>(conditions.size());
}

QString FormatPrCondText(int rowIndex)
{
    return conditionText(PrRecords.at(rowIndex));
}
