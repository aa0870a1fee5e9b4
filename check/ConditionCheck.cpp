#include "check/ConditionCheck.h"

#include "check/NumberKey.h"
#include "check/OtherRows.h"
#include "document/ParameterColumn.h"
#include "document/PrCondText.h"
#include "runtime/NumberText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isNegated(const PrCondition &condition)
{
    return (condition.kind & PrCondition::NotEqual) != 0;
}

bool hasRange(const PrCondition &condition)
{
    return (condition.kind & PrCondition::HasRange) != 0;
}

/// The values that a condition names; std::nullopt if they are not numbers.
std::optional<SettingInterval> namedValues(const PrCondition &condition)
{
    const auto first = numericValue(condition.value1);
    const auto second = hasRange(condition) ? numericValue(condition.value2) : first;
    if (!first || !second) {
        return std::nullopt;
    }
    return SettingInterval{std::min(*first, *second), std::max(*first, *second)};
}

/// Looks at the conditions of one record.
class ConditionCheck
{
public:
    ConditionCheck(const PrRecord &record, int row, const OtherRows &others, Findings &findings);

    void check();

private:
    void check(const PrCondition &condition);
    void checkValues(const PrCondition &condition, const QList<SettingInterval> &permitted);
    void checkOpposites();
    void add(CheckId id, const PrCondition &condition, const QString &more = {});

    const PrRecord &m_record;
    int m_row;
    const OtherRows &m_others;
    Findings &m_findings;
};

ConditionCheck::ConditionCheck(const PrRecord &record, int row, const OtherRows &others, Findings &findings)
    : m_record(record), m_row(row), m_others(others), m_findings(findings)
{
}

void ConditionCheck::check()
{
    for (const PrCondition &condition : m_record.conditions) {
        check(condition);
    }
    checkOpposites();
}

void ConditionCheck::check(const PrCondition &condition)
{
    if (condition.subject == "MODE"_L1) {
        checkValues(condition, {{0, lastOperationMode}});
        return;
    }
    if (!isNumeric(condition.subject)) {
        return; // a plug-in option may have any name; anything else does not survive a save
    }
    const int row = m_others.rowOf(condition.subject);
    if (row < 0) {
        add(CheckId::ConditionOnMissing, condition, condition.subject);
    } else if (numberKey(condition.subject) == numberKey(m_record.number)) {
        add(CheckId::ConditionOnItself, condition);
    } else {
        checkValues(condition, m_others.intervals(row));
    }
}

/// permitted: what the subject can be; empty if anything.
void ConditionCheck::checkValues(const PrCondition &condition, const QList<SettingInterval> &permitted)
{
    const auto named = namedValues(condition);
    if (!named || permitted.isEmpty()) {
        return;
    }
    if (hasRange(condition) && isCoveredBy(permitted, *named)) {
        add(isNegated(condition) ? CheckId::ConditionNever : CheckId::ConditionAlways, condition);
    } else if (!meets(permitted, *named) && (isNegated(condition) || condition.subject == "MODE"_L1)) {
        add(isNegated(condition) ? CheckId::ConditionAlways : CheckId::ConditionNever, condition);
    } else if (!containsValue(permitted, named->lowest) || !containsValue(permitted, named->highest)) {
        add(CheckId::ConditionOutsideRange, condition, condition.subject);
    }
}

/// Two conditions of which one holds whenever the other does not
void ConditionCheck::checkOpposites()
{
    const auto &conditions = m_record.conditions;
    constexpr qsizetype mostCompared = 64; // no list that somebody has typed is longer
    for (qsizetype i = 1; i < std::min(conditions.size(), mostCompared); ++i) {
        PrCondition opposite = conditions[i];
        opposite.kind ^= PrCondition::NotEqual;
        if (std::find(conditions.begin(), conditions.begin() + i, opposite) != conditions.begin() + i) {
            add(CheckId::ConditionAlways, conditions[i]);
        }
    }
}

void ConditionCheck::add(CheckId id, const PrCondition &condition, const QString &more)
{
    QStringList arguments = {conditionsToText({&condition, 1})};
    if (!more.isEmpty()) {
        arguments << more;
    }
    m_findings.append({id, {.row = m_row, .column = ParameterColumn::Condition}, m_record.number, arguments});
}

} // namespace

void checkConditions(const PrRecord &record, int row, const OtherRows &others, Findings &findings)
{
    if (!record.conditions.isEmpty()) {
        ConditionCheck(record, row, others, findings).check();
    }
}
