#include "tool/SheetFields.h"

#include "check/NumberKey.h"
#include "document/FieldText.h"
#include "document/ParameterColumn.h"
#include "document/PrCondText.h"
#include "runtime/NumberText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr SheetField machineFields[] = {{"value"_L1, FieldKind::Text, 0}};
constexpr SheetField capacityFields[] = {{"current"_L1, FieldKind::Number, 0}};
constexpr SheetField parameterFields[] = {
    {"helpId"_L1, FieldKind::Number, ParameterColumn::HelpId},
    {"name"_L1, FieldKind::Text, ParameterColumn::Name},
    {"unit"_L1, FieldKind::Text, ParameterColumn::Unit},
    {"min1"_L1, FieldKind::Number, ParameterColumn::Min1},
    {"min2"_L1, FieldKind::Number, ParameterColumn::Min2},
    {"min3"_L1, FieldKind::Number, ParameterColumn::Min3},
    {"factorySetting"_L1, FieldKind::Number, ParameterColumn::FactorySetting},
    {"functionCode"_L1, FieldKind::Code, ParameterColumn::FuncCode},
    {"rangeCheck"_L1, FieldKind::Number, ParameterColumn::RangeCheck},
    {"ranges"_L1, FieldKind::Text, ParameterColumn::SettingRange},
    {"conditions"_L1, FieldKind::Conditions, ParameterColumn::Condition},
};

constexpr SheetPartInfo parts[] = {
    {SheetPart::Machine, "machine"_L1, "key"_L1, machineFields},
    {SheetPart::Capacities, "capacities"_L1, "capacity"_L1, capacityFields},
    {SheetPart::Options, "options"_L1, "option"_L1, {}},
    {SheetPart::Parameters, "parameters"_L1, "number"_L1, parameterFields},
};

bool isSameCode(const QString &left, const QString &right)
{
    return isNumeric(left) && isNumeric(right) && storedFunctionCode(left) == storedFunctionCode(right);
}

bool isSameConditions(const QString &left, const QString &right)
{
    const auto before = conditionsFromText(left);
    const auto after = conditionsFromText(right);
    return std::ranges::equal(before, after, [](const PrCondition &one, const PrCondition &other) {
        return one.kind == other.kind && numberKey(one.subject) == numberKey(other.subject)
            && numberKey(one.value1) == numberKey(other.value1) && numberKey(one.value2) == numberKey(other.value2);
    }) && !before.isEmpty();
}

} // namespace

std::span<const SheetPartInfo> sheetParts()
{
    return parts;
}

const SheetPartInfo &sheetPart(SheetPart part)
{
    return parts[std::size_t(part)];
}

QLatin1StringView fieldNameOfColumn(int column)
{
    if (column == ParameterColumn::Number) {
        return "number"_L1;
    }
    if (column == ParameterColumn::ConditionCount) {
        return "conditionCount"_L1;
    }
    const auto *found = std::ranges::find(parameterFields, column, &SheetField::column);
    return found == std::end(parameterFields) ? ""_L1 : found->name;
}

bool isSameValue(FieldKind kind, const QString &left, const QString &right)
{
    if (left == right) {
        return true;
    }
    switch (kind) {
    case FieldKind::Text:
        return false;
    case FieldKind::Number:
        return isNumeric(left) && isNumeric(right) && numberKey(left) == numberKey(right);
    case FieldKind::Code:
        return isSameCode(left, right);
    case FieldKind::Conditions:
        return isSameConditions(left, right);
    }
    return false;
}
