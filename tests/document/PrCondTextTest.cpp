#include "document/PrCondText.h"

#include "document/DocumentTables.h"
#include "document/TableTexts.h"
#include "tests/document/RecordPrinters.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Conditions = QList<PrCondition>;

struct ParseCase
{
    QString text;
    Conditions conditions;
};

class ConditionText : public testing::TestWithParam<ParseCase>
{
protected:
    ConditionText() { resetDocumentTables(); }
};

TEST_P(ConditionText, givesItsValidConditions)
{
    const auto &[text, conditions] = GetParam();
    EXPECT_EQ(conditionsFromText(text), conditions) << text.toStdString();
    EXPECT_EQ(ParsePrCondText(text), conditions.size());
    EXPECT_EQ(PrConditions.first(conditions.size()), conditions);
}

INSTANTIATE_TEST_SUITE_P(Grammar, ConditionText,
    testing::ValuesIn(std::vector<ParseCase>{
        {u"79=1"_s, {{u"79"_s, 0, u"1"_s, {}}}},
        {u"79/1"_s, {{u"79"_s, 1, u"1"_s, {}}}},
        {u"160=1-3"_s, {{u"160"_s, 2, u"1"_s, u"3"_s}}},
        {u"10/5-7"_s, {{u"10"_s, 3, u"5"_s, u"7"_s}}},
        {u"MODE=1"_s, {{u"MODE"_s, 0, u"1"_s, {}}}},
        {u"MODE/0"_s, {{u"MODE"_s, 1, u"0"_s, {}}}},
        {u"OP=A1"_s, {{u"OP"_s, 0, u"A1"_s, {}}}},
        {u"OP/A1,79=1-3,10/5,MODE=1"_s,
            {{u"OP"_s, 1, u"A1"_s, {}}, {u"79"_s, 2, u"1"_s, u"3"_s}, {u"10"_s, 1, u"5"_s, {}},
                {u"MODE"_s, 0, u"1"_s, {}}}},
    }));

INSTANTIATE_TEST_SUITE_P(Commas, ConditionText,
    testing::ValuesIn(std::vector<ParseCase>{
        {u""_s, {}},
        {u"   "_s, {}},
        {u","_s, {}},
        {u"79=1,"_s, {{u"79"_s, 0, u"1"_s, {}}}},
        {u"79=1,,MODE=2"_s, {{u"79"_s, 0, u"1"_s, {}}, {u"MODE"_s, 0, u"2"_s, {}}}},
    }));

INSTANTIATE_TEST_SUITE_P(Dropped, ConditionText,
    testing::ValuesIn(std::vector<ParseCase>{
        {u"X=1"_s, {}},
        {u"mode=1"_s, {}},
        {u" MODE=1"_s, {}},
        {u"Op=A"_s, {}},
        {u"MODE=A"_s, {}},
        {u"79=A"_s, {}},
        {u"79="_s, {}},
        {u"OP="_s, {}},
        {u"=5"_s, {}},
        {u"79"_s, {}},
        {u"79=1-"_s, {}},
        {u"79=1-x"_s, {}},
        {u"79=1d5"_s, {}},
        {u"79=1.5.2"_s, {}},
        {u"79=1 2"_s, {}},
        {u"79=-"_s, {}},
        {u"X=1,79=2"_s, {{u"79"_s, 0, u"2"_s, {}}}},
    }));

INSTANTIATE_TEST_SUITE_P(OddItems, ConditionText,
    testing::ValuesIn(std::vector<ParseCase>{
        {u"79/1=2"_s, {{u"79"_s, 0, u"12"_s, {}}}},
        {u"79=1/2"_s, {{u"79"_s, 1, u"12"_s, {}}}},
        {u"79=1-3/"_s, {{u"79"_s, 3, u"1"_s, u"3"_s}}},
        {u"79=-1"_s, {{u"79"_s, 2, u""_s, u"1"_s}}},
        {u"79 = 1"_s, {{u"79"_s, 0, u"1"_s, {}}}},
        {u" 79 / 1 -3 "_s, {{u"79"_s, 3, u"1"_s, u"3"_s}}},
        {u"OP=A-1"_s, {{u"OP"_s, 0, u"A1"_s, {}}}},
        {u"MODE=-1"_s, {{u"MODE"_s, 0, u"1"_s, {}}}},
        {u"7-9=1"_s, {{u"79"_s, 0, u"1"_s, {}}}},
        {u"79=1-2-3"_s, {{u"79"_s, 2, u"2"_s, u"3"_s}}},
        {u"OP= A 1 "_s, {{u"OP"_s, 0, u"A 1"_s, {}}}},
        {u"79=&H1A"_s, {{u"79"_s, 0, u"&H1A"_s, {}}}},
        {u"79=\u30001"_s, {{u"79"_s, 0, u"\u30001"_s, {}}}},
    }));

INSTANTIATE_TEST_SUITE_P(TextOrder, ConditionText,
    testing::ValuesIn(std::vector<ParseCase>{
        {u"160=3-1"_s, {{u"160"_s, 2, u"1"_s, u"3"_s}}},
        {u"160=9-10"_s, {{u"160"_s, 2, u"10"_s, u"9"_s}}},
        {u"160=1-1"_s, {{u"160"_s, 2, u"1"_s, u"1"_s}}},
        // The order is that of the untrimmed text: a space sorts before any digit.
        {u"160=1- 3"_s, {{u"160"_s, 2, u"3"_s, u"1"_s}}},
    }));

class SharedConditions : public testing::Test
{
protected:
    SharedConditions() { resetDocumentTables(); }
};

TEST_F(SharedConditions, stayAloneWhenTheTextHoldsNone)
{
    PrConditions = {{u"1"_s, 0, u"2"_s, {}}};
    const Conditions before = PrConditions;
    for (const auto &text : {u""_s, u"   "_s}) {
        EXPECT_EQ(ParsePrCondText(text), 0);
        EXPECT_EQ(PrConditions, before);
    }
}

TEST_F(SharedConditions, haveOneSpareElementAfterTheLastValidOne)
{
    EXPECT_EQ(ParsePrCondText(u"79=1,X=3,80=2"), 2);
    ASSERT_EQ(PrConditions.size(), 3);
    EXPECT_EQ(PrConditions[2], PrCondition());
}

TEST_F(SharedConditions, areReplacedFromTheFirstPosition)
{
    ParsePrCondText(u"79=1,80=2");
    EXPECT_EQ(ParsePrCondText(u"81=3"), 1);
    EXPECT_EQ(PrConditions[0].subject, u"81"_s);
}

TEST_F(SharedConditions, areFormattedAsFarAsTheRecordCounts)
{
    PrRecord record;
    record.conditions = {{u"79"_s, 3, u"1"_s, u"3"_s}, {u"OP"_s, 0, u"A1"_s, {}}};
    record.conditionCount = 2;
    PrRecords = {record, record, record, record};
    PrRecords[1].conditionCount = 1;
    PrRecords[2].conditionCount = 0;
    PrRecords[3].conditionCount = -5;
    EXPECT_EQ(FormatPrCondText(0), u"79/1-3,OP=A1"_s);
    EXPECT_EQ(FormatPrCondText(1), u"79/1-3"_s);
    EXPECT_EQ(FormatPrCondText(2), u""_s);
    EXPECT_EQ(FormatPrCondText(3), u""_s);
}

} // namespace
