#include "document/RecordReader.h"

#include "document/FieldReader.h"
#include "document/ParameterColumns.h"

#include <algorithm>

namespace {

/// A count of list entries that follow: a negative one cannot size a list.
qsizetype listSize(FieldReader &in, qint16 count)
{
    if (count < 0) {
        in.fail(FailureCode::SubscriptOutOfRange);
    }
    return in.hasFailed() ? 0 : count;
}

void readRanges(FieldReader &in, PrRecord &record)
{
    const qsizetype count = listSize(in, record.rangeCount);
    // What a row claims to hold costs nothing until it is there: each range has two separators at least.
    record.ranges.reserve(std::min(count, in.remaining() / 2 + 1));
    for (qsizetype i = 0; i < count && !in.hasFailed(); ++i) {
        const float lower = in.single();
        const float upper = in.single();
        record.ranges.append(SettingRange{upper, lower});
    }
}

PrCondition readCondition(FieldReader &in)
{
    PrCondition condition;
    condition.subject = in.text();
    condition.kind = in.byte();
    condition.value1 = in.text();
    if ((condition.kind & PrCondition::HasRange) != 0) {
        condition.value2 = in.text();
    }
    return condition;
}

void readConditions(FieldReader &in, PrRecord &record)
{
    const qsizetype count = listSize(in, record.conditionCount);
    record.conditions.reserve(std::min(count, in.remaining() / 3 + 1));
    for (qsizetype i = 0; i < count && !in.hasFailed(); ++i) {
        record.conditions.append(readCondition(in));
    }
}

} // namespace

void readRecord(FieldReader &in, PrRecord &record)
{
    in.beginRow();
    record.conditionCount = in.int16();
    for (const auto field : fileTexts) {
        record.*field = in.text();
    }
    record.rangeCount = in.int16();
    readRanges(in, record);
    readConditions(in, record);
}
