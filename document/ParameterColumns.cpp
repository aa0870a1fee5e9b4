#include "document/ParameterColumns.h"

#include "document/FieldText.h"
#include "document/PrCondText.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// otherwise: stored for "No" and for an empty cell.
QStringView increment(QStringView cell, QStringView otherwise)
{
    constexpr QStringView steps[] = {u"1", u"0.1", u"0.01", u"0.001"};
    const bool isStep = std::ranges::any_of(steps, [cell](QStringView step) { return cell == step; });
    return isStep ? cell : otherwise;
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

bool ColumnConversions::collectText(const ColumnInfo &column, QStringView cell, CollectedRow &row)
{
    row.fields.text(column.fileField) = cell;
    return true;
}

QStringView ColumnConversions::firstIncrement(QStringView cell)
{
    return increment(cell, u"1");
}

QStringView ColumnConversions::otherIncrement(QStringView cell)
{
    return increment(cell, u"-1");
}

bool ColumnConversions::collectFirstIncrement(const ColumnInfo &column, QStringView cell, CollectedRow &row)
{
    row.fields.text(column.fileField) = firstIncrement(cell);
    return true;
}

bool ColumnConversions::collectOtherIncrement(const ColumnInfo &column, QStringView cell, CollectedRow &row)
{
    row.fields.text(column.fileField) = otherIncrement(cell);
    return true;
}

bool ColumnConversions::collectRanges(const ColumnInfo &, QStringView cell, CollectedRow &row)
{
    const bool fits = bool(parseRanges(cell, row.ranges));
    row.fields.rangeCount = fits ? static_cast<qint16>(row.ranges.size()) : qint16(0);
    row.fields.ranges = {row.ranges.constData(), std::size_t(row.ranges.size())};
    return fits;
}

bool ColumnConversions::collectRangeCheck(const ColumnInfo &column, QStringView cell, CollectedRow &row)
{
    row.fields.text(column.fileField) = checkBoxValue(cell);
    return true;
}

bool ColumnConversions::collectFactorySetting(const ColumnInfo &column, QStringView cell, CollectedRow &row)
{
    if (isNormalizedNum(cell)) {
        row.fields.text(column.fileField) = cell;
    } else {
        row.factorySetting = NormalizeNumText(cell);
        row.fields.text(column.fileField) = row.factorySetting;
    }
    return true;
}

bool ColumnConversions::collectFunctionCode(const ColumnInfo &column, QStringView cell, CollectedRow &row)
{
    const auto code = hexToInt16(cell);
    if (!code) {
        return false;
    }
    char digits[numberTextLength];
    const auto written = std::to_chars(digits, std::end(digits), *code);
    const auto end = std::copy(digits, written.ptr, row.functionCode.begin());
    row.fields.text(column.fileField) = QStringView(row.functionCode.begin(), end);
    return true;
}

bool ColumnConversions::collectNothing(const ColumnInfo &, QStringView, CollectedRow &)
{
    return true;
}

bool ColumnConversions::collectConditions(const ColumnInfo &, QStringView cell, CollectedRow &row)
{
    row.conditions = conditionsFromText(cell);
    const bool fits = row.conditions.size() <= std::numeric_limits<qint16>::max();
    row.fields.conditionCount = fits ? static_cast<qint16>(row.conditions.size()) : qint16(0);
    row.fields.conditions = {row.conditions.constData(), std::size_t(row.conditions.size())};
    return fits;
}
