// Any text in a cell: as read conditions, as setting ranges, as numbers.

#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "fuzz/Law.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Ranges = QList<SettingRange>;

/// Whether a condition's text is read as one: only a first value may be no number.
bool isSayable(const PrCondition &condition)
{
    return (condition.kind & PrCondition::HasRange) != 0 ? isNumeric(condition.value2) : !condition.value1.isEmpty();
}

/// What a list of conditions is after it was a text: range values in the order of their texts.
QList<PrCondition> settled(QList<PrCondition> conditions)
{
    conditions.removeIf([](const PrCondition &condition) { return !isSayable(condition); });
    for (PrCondition &condition : conditions) {
        if ((condition.kind & PrCondition::HasRange) != 0 && condition.value2 < condition.value1) {
            condition.value1.swap(condition.value2);
        }
    }
    return conditions;
}

void tryConditions(const QString &text)
{
    const QList<PrCondition> conditions = conditionsFromText(text);
    for (const PrCondition &condition : conditions) {
        require(condition.kind <= 3, "a kind has two bits");
        require(((condition.kind & PrCondition::HasRange) != 0) == !condition.value2.isEmpty(),
            "a second value is there when the kind says so");
        require(!condition.subject.isEmpty(), "a condition has a subject");
    }
    const QList<PrCondition> again = conditionsFromText(conditionsToText(conditions));
    require(again == settled(conditions), "conditions come back from their text");
    require(conditionsFromText(conditionsToText(again)) == settled(again), "and again");
}

bool isExact(float bound)
{
    const QString text = SingleToText(bound);
    return static_cast<float>(leadingNumber(text)) == bound && !text.contains(u'-');
}

/// Whether the text of a range says all of it.
bool isSaidWhole(const SettingRange &range)
{
    const bool single = range.upper == 0 && range.lower >= 0;
    return isExact(range.lower) && (range.upper == -1 || single || (range.upper > range.lower && isExact(range.upper)));
}

void tryRanges(const QString &text)
{
    const auto ranges = rangesFromText(text);
    if (!ranges) {
        return;
    }
    require(ranges->size() == (text.isEmpty() ? 0 : text.count(u',') + 1), "every part is a range");
    const QString formatted = rangesToText(*ranges);
    if (std::ranges::all_of(*ranges, isSaidWhole)) {
        require(rangesFromText(formatted) == ranges, "ranges come back from their text");
    }
    require(formatted.count(u',') == std::max<qsizetype>(ranges->size() - 1, 0), "every range is a part");
}

void tryNumbers(const QString &text)
{
    const QString normalized = NormalizeNumText(text);
    require(NormalizeNumText(normalized) == normalized, "a normalised number stays");
    require(!normalized.contains(u','), "files have a decimal point");
    if (isNormalizedNum(text)) {
        require(doubleText(leadingNumber(text)) == text, "what is seen to be normalised is");
    }
    const auto value = numericValue(text);
    require(!value || std::isfinite(*value), "a numeric text is a number");
    require(value || !toInt16(QStringView(text)), "what is not a number is not a whole number");
    static_cast<void>(toBoolean(text));
    const QByteArray ascii = text.toLatin1();
    if (QString::fromLatin1(ascii) == text && isAscii(ascii)) {
        require(leadingNumber(QByteArrayView(ascii)) == leadingNumber(text), "a number is the same in bytes and units");
    }
}

void tryFunctionCode(const QString &text)
{
    if (const auto code = hexToInt16(text)) {
        require(hexToInt16(functionCodeText(*code)) == code, "a code comes back from its four digits");
        require(storedFunctionCode(QString::number(*code)) == *code, "a code comes back from the file");
    }
    require(functionCodeText(storedFunctionCode(text)).size() == 4, "a code has four digits");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArrayView bytes(data, qsizetype(size));
    const QString text = AnsiCodePage::page(size % 2 != 0 ? 932 : 1252).decode(bytes);
    tryConditions(text);
    tryRanges(text);
    tryNumbers(text);
    tryFunctionCode(text);
    return 0;
}
