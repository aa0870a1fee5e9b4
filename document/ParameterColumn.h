#pragma once

/// The parameter grid's columns, 1-based; each shows one field of a parameter.
namespace ParameterColumn {
enum : int {
    Number = 1,
    Name,
    SettingRange,
    RangeCheck,
    Min1,
    Min2,
    Min3,
    Unit,
    FactorySetting,
    HelpId,
    FuncCode,
    ConditionCount,
    Condition,
    Count = Condition
};
} // namespace ParameterColumn
