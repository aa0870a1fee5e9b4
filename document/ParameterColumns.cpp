#include "document/ParameterColumns.h"

#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "document/TextPool.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView increments[] = {"1"_L1, "0.1"_L1, "0.01"_L1, "0.001"_L1};

/// A text that already is what the cell says keeps its storage: after an open and after a save that is nearly all.
template <typename View>
void assign(QString &field, View text, TextPool &pool)
{
    if (field != text) {
        field = pool.share(text);
    }
}

/// otherwise: stored for "No" and for an empty cell.
void assignIncrement(QString &field, QStringView cell, QLatin1StringView otherwise, TextPool &pool)
{
    const auto *step = std::ranges::find_if(increments, [cell](QLatin1StringView known) { return cell == known; });
    assign(field, step != std::end(increments) ? *step : otherwise, pool);
}

/// What a check box with that text shows. Any text can be pasted into it, but a file knows no other values.
QStringView checkBoxValue(QStringView cell)
{
    const bool ticked = cell == "1"_L1 || (cell != "0"_L1 && numericValue(cell).value_or(0) != 0);
    return ticked ? u"1" : u"0";
}

} // namespace

QString ColumnConversions::shownRanges(const PrRecord &record)
{
    return settingRangeText(record);
}

QString ColumnConversions::shownFunctionCode(const PrRecord &record)
{
    return functionCodeText(storedFunctionCode(record.functionCode));
}

QString ColumnConversions::shownConditionCount(const PrRecord &record)
{
    return QString::number(record.conditionCount);
}

QString ColumnConversions::shownConditions(const PrRecord &record)
{
    return conditionText(record);
}

bool ColumnConversions::collectText(const ColumnInfo &column, QStringView cell, PrRecord &record, TextPool &pool)
{
    assign(record.*column.field, cell, pool);
    return true;
}

bool ColumnConversions::collectFirstIncrement(
    const ColumnInfo &column, QStringView cell, PrRecord &record, TextPool &pool)
{
    assignIncrement(record.*column.field, cell, "1"_L1, pool);
    return true;
}

bool ColumnConversions::collectOtherIncrement(
    const ColumnInfo &column, QStringView cell, PrRecord &record, TextPool &pool)
{
    assignIncrement(record.*column.field, cell, "-1"_L1, pool);
    return true;
}

bool ColumnConversions::collectRanges(const ColumnInfo &, QStringView cell, PrRecord &record, TextPool &)
{
    const bool fits = bool(parseRanges(cell, record.ranges));
    record.rangeCount = fits ? static_cast<qint16>(record.ranges.size()) : qint16(0);
    return fits;
}

bool ColumnConversions::collectRangeCheck(const ColumnInfo &, QStringView cell, PrRecord &record, TextPool &pool)
{
    assign(record.rangeCheck, checkBoxValue(cell), pool);
    return true;
}

bool ColumnConversions::collectFactorySetting(const ColumnInfo &, QStringView cell, PrRecord &record, TextPool &pool)
{
    if (isNormalizedNum(cell)) {
        assign(record.factorySetting, cell, pool);
    } else {
        assign(record.factorySetting, QStringView(NormalizeNumText(cell)), pool);
    }
    return true;
}

bool ColumnConversions::collectFunctionCode(const ColumnInfo &, QStringView cell, PrRecord &record, TextPool &pool)
{
    const auto code = hexToInt16(cell);
    if (!code) {
        return false;
    }
    char digits[numberTextLength];
    const auto written = std::to_chars(digits, std::end(digits), *code);
    assign(record.functionCode, QLatin1StringView(digits, written.ptr - digits), pool);
    return true;
}

bool ColumnConversions::collectNothing(const ColumnInfo &, QStringView, PrRecord &, TextPool &)
{
    return true;
}

bool ColumnConversions::collectConditions(const ColumnInfo &, QStringView cell, PrRecord &record, TextPool &)
{
    record.conditions = conditionsFromText(cell);
    const bool fits = record.conditions.size() <= std::numeric_limits<qint16>::max();
    record.conditionCount = fits ? static_cast<qint16>(record.conditions.size()) : qint16(0);
    return fits;
}
