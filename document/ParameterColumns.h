#pragma once

#include "document/ParameterColumn.h"
#include "document/RowFields.h"
#include "resources/OwnTexts.h"

#include <QStringView>

#include <algorithm>
#include <array>

/// What a user may type into a column's cells.
enum class ColumnKind {
    Text, ///< limit: characters; 0: as many as wanted
    Integer, ///< 0 to limit
    Increment, ///< one of the minimum steps, or "No"
    CheckBox,
};

/// A column of the parameter grid and the field of PrRecord that it shows. A new column is a line in the table below,
/// a field in PrRecord and the two conversions named in the line.
struct ColumnInfo
{
    int column; ///< from 1
    Caption heading;
    QString PrRecord::*field; ///< the field, where it is one text; null for a list
    int fileField; ///< its position among a row's texts in the file, from 1; 0 if field is null
    /// What the cell shows of a record; null when it is the field, or the field as an increment, itself.
    QString (*shown)(const PrRecord &record);
    /// Takes the cell's text into the row; false for one that its field cannot hold (an overflow).
    bool (*collect)(const ColumnInfo &column, QStringView cell, CollectedRow &row);
    bool isAsTyped; ///< the file has what was typed, so that it may not come back as it was
    ColumnKind kind;
    int limit;
    QStringView newText; ///< in a row that was added; null: the cell is left alone (the last columns only)
    double width; ///< in characters; 0: as wide as the heading
    bool isCentred;
    bool isHidden; ///< until the user shows it
};

namespace ColumnConversions {
QString shownRanges(const PrRecord &record);
QString shownFunctionCode(const PrRecord &record);
QString shownConditionCount(const PrRecord &record);
QString shownConditions(const PrRecord &record);
bool collectText(const ColumnInfo &column, QStringView cell, CollectedRow &row);
bool collectFirstIncrement(const ColumnInfo &column, QStringView cell, CollectedRow &row);
bool collectOtherIncrement(const ColumnInfo &column, QStringView cell, CollectedRow &row);
bool collectRanges(const ColumnInfo &column, QStringView cell, CollectedRow &row);
bool collectRangeCheck(const ColumnInfo &column, QStringView cell, CollectedRow &row);
bool collectFactorySetting(const ColumnInfo &column, QStringView cell, CollectedRow &row);
bool collectFunctionCode(const ColumnInfo &column, QStringView cell, CollectedRow &row);
/// The number of conditions is that of the list, whatever the cell says.
bool collectNothing(const ColumnInfo &column, QStringView cell, CollectedRow &row);
bool collectConditions(const ColumnInfo &column, QStringView cell, CollectedRow &row);
/// What a file has for the cell of a minimum increment: a step as it is; for "No" and all else "1" in the first column,
/// "-1" in the others.
QStringView firstIncrement(QStringView cell);
QStringView otherIncrement(QStringView cell);
} // namespace ColumnConversions

// clang-format off
/// The columns, by column from 1 at index 0.
inline constexpr std::array<ColumnInfo, ParameterColumn::Count> parameterColumns = [] {
    using namespace ColumnConversions;
    using R = PrRecord;
    using enum ColumnKind;
    constexpr auto none = nullptr;
    constexpr double fitted = 0;
    return std::array<ColumnInfo, ParameterColumn::Count>{{
        //                                heading                      field               in file  shown                collect                typed  kind, limit        new      width   centred hidden
        {ParameterColumn::Number,         Text::HeadingNumber,         &R::number,         1, none,                collectText,           true,  Integer, 1000,   u"",     4,      true,  false},
        {ParameterColumn::Name,           Text::HeadingName,           &R::name,           3, none,                collectText,           true,  Text, 0,         u"",     25,     false, false},
        {ParameterColumn::SettingRange,   Text::HeadingSettingRange,   none,               0, shownRanges,         collectRanges,         false, Text, 100,       u"",     20,     false, false},
        {ParameterColumn::RangeCheck,     Text::HeadingRangeCheck,     &R::rangeCheck,    10, none,                collectRangeCheck,     false, CheckBox, 0,     u"0",    fitted, true,  false},
        {ParameterColumn::Min1,           Text::HeadingMin1,           &R::min1,           5, none,                collectFirstIncrement, false, Increment, 0,    u"No",   7,      true,  false},
        {ParameterColumn::Min2,           Text::HeadingMin2,           &R::min2,           6, none,                collectOtherIncrement, false, Increment, 0,    u"No",   7,      true,  false},
        {ParameterColumn::Min3,           Text::HeadingMin3,           &R::min3,           7, none,                collectOtherIncrement, false, Increment, 0,    u"No",   7,      true,  true},
        {ParameterColumn::Unit,           Text::HeadingUnit,           &R::unit,           4, none,                collectText,           true,  Text, 0,         u"",     6,      true,  true},
        {ParameterColumn::FactorySetting, Text::HeadingFactorySetting, &R::factorySetting, 8, none,                collectFactorySetting, false, Text, 0,         u"",     fitted, true,  false},
        {ParameterColumn::HelpId,         Text::HeadingHelpId,         &R::helpId,         2, none,                collectText,           true,  Integer, 32767,  u"0",    fitted, true,  false},
        {ParameterColumn::FuncCode,       Text::HeadingFuncCode,       &R::functionCode,   9, shownFunctionCode,   collectFunctionCode,   false, Text, 0,         u"0000", fitted, true,  true},
        {ParameterColumn::ConditionCount, Text::HeadingConditionCount, none,               0, shownConditionCount, collectNothing,        false, Integer, 9,      u"0",    fitted, true,  false},
        {ParameterColumn::Condition,      Text::HeadingCondition,      none,               0, shownConditions,     collectConditions,     false, Text, 100,       {},      20,     false, true},
    }};
}();
// clang-format on

/// The texts of a row in the order of the file, between the row's two counts.
inline constexpr auto fileTexts = [] {
    std::array<QString PrRecord::*, RowFields::textCount> fields{};
    for (const ColumnInfo &column : parameterColumns) {
        if (column.field != nullptr) {
            fields.at(column.fileField - 1) = column.field;
        }
    }
    return fields;
}();

/// Where a column's text is among a row's texts in the file, from 1.
constexpr int fieldOf(int column)
{
    return parameterColumns.at(std::size_t(column - 1)).fileField;
}

constexpr bool isTableComplete()
{
    for (int i = 0; i < ParameterColumn::Count; ++i) {
        if (parameterColumns.at(i).column != i + 1) {
            return false;
        }
    }
    for (const auto field : fileTexts) {
        if (field == nullptr) {
            return false;
        }
    }
    return true;
}
static_assert(isTableComplete(), "every column is there, in order, and every text has its own position in the file");
static_assert(
    std::ranges::is_partitioned(parameterColumns, [](const ColumnInfo &column) { return !column.newText.isNull(); }),
    "the columns that an added row leaves alone are the last ones");
