#include "tests/document/RecordPrinters.h"

#include "document/ParameterColumns.h"
#include "tests/support/QtPrinters.h"

#include <algorithm>
#include <ostream>

void PrintTo(const SettingRange &range, std::ostream *out)
{
    *out << range.lower << ".." << range.upper;
}

void PrintTo(const PrCondition &condition, std::ostream *out)
{
    *out << testing::PrintToString(condition.subject) << " kind " << int(condition.kind) << ' '
         << testing::PrintToString(condition.value1) << ' ' << testing::PrintToString(condition.value2);
}

void PrintTo(const PrRecord &record, std::ostream *out)
{
    *out << record.conditionCount << ' ';
    for (const auto field : fileTexts) {
        *out << testing::PrintToString(record.*field) << ' ';
    }
    *out << record.rangeCount << ' ' << testing::PrintToString(record.ranges) << ' '
         << testing::PrintToString(record.conditions);
}

testing::AssertionResult sameBytes(const QByteArray &found, const QByteArray &expected)
{
    constexpr qsizetype around = 30;
    if (found == expected) {
        return testing::AssertionSuccess();
    }
    const qsizetype at =
        std::mismatch(found.begin(), found.end(), expected.begin(), expected.end()).first - found.begin();
    const qsizetype from = std::max<qsizetype>(0, at - around);
    return testing::AssertionFailure() << found.size() << " bytes, not " << expected.size() << ", differ at " << at
                                       << ": " << testing::PrintToString(found.mid(from, 2 * around)) << " instead of "
                                       << testing::PrintToString(expected.mid(from, 2 * around));
}
