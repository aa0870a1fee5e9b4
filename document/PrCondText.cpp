#include "document/PrCondText.h"

#include "runtime/NumberText.h"
#include "runtime/Spaces.h"

#include <algorithm>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr auto operationMode = "MODE"_L1;
constexpr auto pluginOption = "OP"_L1;

/// Scans one item; what does not fit is dropped character by character until the item's end decides.
class ConditionScanner
{
public:
    std::optional<PrCondition> scan(QStringView item);

private:
    enum class Expecting { Relation, Value1, Value2 };

    bool isSubject();

    void takeRelation(quint8 kind);
    void takeDash();
    std::optional<PrCondition> finishValue1();
    std::optional<PrCondition> finishValue2();
    QString takeText();

    PrCondition m_condition;
    Expecting m_expecting = Expecting::Relation;
    QString m_text; ///< collected since the last accepted relation or dash, untrimmed
    bool m_takesRange = false; ///< the subject is a parameter's number
    qsizetype m_examined = 0; ///< characters that tests for a subject have looked at
};

std::optional<PrCondition> ConditionScanner::scan(QStringView item)
{
    for (const QChar character : item) {
        switch (character.unicode()) {
        case u'=':
            takeRelation(0);
            break;
        case u'/':
            takeRelation(PrCondition::NotEqual);
            break;
        case u'-':
            takeDash();
            break;
        default:
            m_text += character;
        }
    }
    if (m_text.isEmpty() || m_expecting == Expecting::Relation) {
        return std::nullopt;
    }
    return m_expecting == Expecting::Value1 ? finishValue1() : finishValue2();
}

/// Whether a subject is complete. Every relation in an item asks again, so that a damaged file's item of a million
/// characters would take hours: from some point on it has no subject.
bool ConditionScanner::isSubject()
{
    constexpr qsizetype maxExamined = 100'000;
    m_takesRange = m_examined < maxExamined && isNumeric(m_text);
    m_examined += m_text.size();
    return m_takesRange || m_text == operationMode || m_text == pluginOption;
}

/// The kind follows every relation character, also one that is dropped otherwise.
void ConditionScanner::takeRelation(quint8 kind)
{
    m_condition.kind = kind;
    if (m_expecting == Expecting::Relation && isSubject()) {
        m_condition.subject = takeText();
        m_expecting = Expecting::Value1;
    }
}

/// Only a parameter's condition has a range; in an option's value the dash is dropped.
void ConditionScanner::takeDash()
{
    if (m_takesRange) {
        m_condition.kind |= PrCondition::HasRange;
        m_condition.value1 = takeText();
        m_expecting = Expecting::Value2;
    }
}

std::optional<PrCondition> ConditionScanner::finishValue1()
{
    if (m_condition.subject != pluginOption && !isNumeric(m_text)) {
        return std::nullopt;
    }
    m_condition.value1 = takeText();
    return std::move(m_condition);
}

/// The smaller of the values as a text comes first.
std::optional<PrCondition> ConditionScanner::finishValue2()
{
    if (!isNumeric(m_text)) {
        return std::nullopt;
    }
    m_condition.kind |= PrCondition::HasRange;
    const bool exchange = m_text < m_condition.value1;
    m_condition.value2 = takeText();
    if (exchange) {
        m_condition.value1.swap(m_condition.value2);
    }
    return std::move(m_condition);
}

QString ConditionScanner::takeText()
{
    QString text = trimSpaces(m_text).toString();
    m_text.clear();
    return text;
}

} // namespace

QList<PrCondition> conditionsFromText(QStringView text)
{
    QList<PrCondition> conditions;
    if (text.isEmpty()) {
        return conditions;
    }
    for (const QStringView item : text.tokenize(u',')) {
        if (auto condition = ConditionScanner().scan(item)) {
            conditions.append(*std::move(condition));
        }
    }
    return conditions;
}

QString conditionsToText(std::span<const PrCondition> conditions)
{
    QString text;
    for (const PrCondition &condition : conditions) {
        text += text.isEmpty() ? ""_L1 : ","_L1;
        text += condition.subject;
        text += (condition.kind & PrCondition::NotEqual) != 0 ? u'/' : u'=';
        text += condition.value1;
        if ((condition.kind & PrCondition::HasRange) != 0) {
            text += u'-';
            text += condition.value2;
        }
    }
    return text;
}

QString conditionText(const PrRecord &record)
{
    const qsizetype count = std::clamp<qsizetype>(record.conditionCount, 0, record.conditions.size());
    return conditionsToText(std::span(record.conditions.data(), static_cast<size_t>(count)));
}
