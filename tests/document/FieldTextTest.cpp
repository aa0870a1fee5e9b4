#include "document/FieldText.h"

#include "document/CollectPrRecords.h"
#include "document/DocumentTables.h"
#include "document/TableTexts.h"
#include "tests/document/FakeGrid.h"
#include "tests/document/RecordPrinters.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct TextCase
{
    QString from;
    QString to;
};

class NormalizedNumber : public testing::TestWithParam<TextCase>
{
};

TEST_P(NormalizedNumber, isTheShortestFormWithAPoint)
{
    EXPECT_EQ(NormalizeNumText(GetParam().from), GetParam().to) << GetParam().from.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Texts, NormalizedNumber,
    testing::ValuesIn(std::vector<TextCase>{
        {u"1,5"_s, u"1.5"_s},
        {u"1.5"_s, u"1.5"_s},
        {u"abc"_s, u"0"_s},
        {u""_s, u"0"_s},
        {u"007"_s, u"7"_s},
        {u"0"_s, u"0"_s},
        {u"-0"_s, u"0"_s},
        {u"00"_s, u"0"_s},
        {u"-5"_s, u"-5"_s},
        {u"+5"_s, u"5"_s},
        {u"1.50"_s, u"1.5"_s},
        {u"1.0"_s, u"1"_s},
        {u"5."_s, u"5"_s},
        {u".5"_s, u"0.5"_s},
        {u"-.5"_s, u"-0.5"_s},
        {u"0.0"_s, u"0"_s},
        {u"0.001"_s, u"0.001"_s},
        {u"0.0001"_s, u"0.0001"_s},
        {u"0.00001"_s, u"1E-05"_s},
        {u"-0.00012"_s, u"-0.00012"_s},
        {u"12abc"_s, u"12"_s},
        {u" 12 "_s, u"12"_s},
        {u"1,234,5"_s, u"1.234"_s},
        {u"1.2.3"_s, u"1.2"_s},
        {u"1e3"_s, u"1000"_s},
        {u"123456789012345"_s, u"123456789012345"_s},
        {u"1234567890123456"_s, u"1.23456789012346E+15"_s},
        {u"0.1234567890123456"_s, u"0.123456789012346"_s},
        {u"1e400"_s, u"1e400"_s},
        {u"-1,5e400x"_s, u"-1.5e400"_s},
        {u"\r1e400"_s, u"1e400"_s},
        {u"1e400-7"_s, u"1e400"_s},
        {u"1.2e400.5"_s, u"1.2e400"_s},
    }));

TEST(NumberTexts, keepThePointWhereTheSystemHasAComma)
{
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(NormalizeNumText(u"1,5"), u"1.5"_s);
    EXPECT_EQ(SingleToText(0.5F), u"0.5"_s);
    QLocale::setDefault(QLocale::system());
}

TEST(NumberTexts, ofSinglesHaveSevenDigits)
{
    EXPECT_EQ(SingleToText(0.1F), u"0.1"_s);
    EXPECT_EQ(SingleToText(30), u"30"_s);
    EXPECT_EQ(SingleToText(-1), u"-1"_s);
    EXPECT_EQ(SingleToText(1234.5678F), u"1234.568"_s);
    EXPECT_EQ(SingleToText(1e7F), u"1E+07"_s);
}

/// A range as it is typed: lower, upper.
SettingRange range(float lower, float upper)
{
    return {upper, lower};
}

struct RangeCase
{
    QString text;
    QList<SettingRange> ranges;
    QString formatted;
};

class RangeText : public testing::TestWithParam<RangeCase>
{
};

TEST_P(RangeText, givesItsRangesAndTheirText)
{
    const auto &[text, ranges, formatted] = GetParam();
    PrRecords = {PrRecord(), PrRecord()};
    const qint16 count = ParseSettingRange(1, text);
    EXPECT_EQ(count, ranges.size()) << text.toStdString();
    EXPECT_EQ(PrRecords[1].ranges, ranges) << text.toStdString();
    PrRecords[1].rangeCount = count;
    EXPECT_EQ(FormatSettingRange(1), formatted);
    EXPECT_TRUE(PrRecords[0].ranges.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, RangeText,
    testing::ValuesIn(std::vector<RangeCase>{
        {u"0-400,9999"_s, {range(0, 400), range(9999, 0)}, u"0-400,9999"_s},
        {u"5-"_s, {range(5, -1)}, u"5-"_s},
        {u"5"_s, {range(5, 0)}, u"5"_s},
        {u"0"_s, {range(0, 0)}, u"0"_s},
        {u"0-0.1"_s, {range(0, 0.1F)}, u"0-0.1"_s},
        {u"400-0"_s, {range(400, 0)}, u"400"_s},
        {u"5-5"_s, {range(5, 5)}, u"5"_s},
        {u"1,"_s, {range(1, 0), range(0, 0)}, u"1,0"_s},
        {u","_s, {range(0, 0), range(0, 0)}, u"0,0"_s},
        {u" 1 - 2 "_s, {range(1, 2)}, u"1-2"_s},
        {u"a-b"_s, {range(0, 0)}, u"0"_s},
        {u"-5"_s, {range(0, 5)}, u"0-5"_s},
        {u"-"_s, {range(0, -1)}, u"0-"_s},
        {u"1-2-3"_s, {range(23, 0)}, u"23"_s},
        {u"1-2-"_s, {range(2, 0)}, u"2"_s},
        {u"1-2-,3"_s, {range(2, 0), range(3, 0)}, u"2,3"_s},
        {u"1-2-3-4"_s, {range(23, 4)}, u"23"_s},
        {u"1--2"_s, {range(2, 0)}, u"2"_s},
        {u"5-, 6-7"_s, {range(5, -1), range(6, 7)}, u"5-,6-7"_s},
        {u" "_s, {range(0, 0)}, u"0"_s},
        {u"1e3-2e3"_s, {range(1000, 2000)}, u"1000-2000"_s},
        {u"5- "_s, {range(5, 0)}, u"5"_s},
    }));

TEST(RangeTexts, thatAreEmptyLeaveTheRangesAlone)
{
    PrRecords = {PrRecord()};
    PrRecords[0].ranges = {range(1, 2)};
    EXPECT_EQ(ParseSettingRange(0, u""), 0);
    EXPECT_EQ(PrRecords[0].ranges, (QList<SettingRange>{range(1, 2)}));
    EXPECT_EQ(FormatSettingRange(0), u""_s);
}

TEST(RangeTexts, overflowBeyondASingleAndBeyondACount)
{
    EXPECT_FALSE(rangesFromText(u"0-1e39"));
    EXPECT_FALSE(rangesFromText(u"1e400,2"));
    EXPECT_FALSE(rangesFromText(QString(32767, u',')));
    EXPECT_TRUE(rangesFromText(QString(32766, u',')));
}

/// What a grid of one row with that cell becomes.
PrRecord collected(int column, const QString &cell)
{
    FakeGrid grid;
    grid.rows = {FakeGrid::emptyRow()};
    grid.rows[0][column - 1] = cell;
    EXPECT_TRUE(CollectPrRecords(grid));
    return PrRecords.value(0);
}

TEST(Collecting, fillsAnEmptyRowWithWhatNothingMeans)
{
    PrRecord expected;
    expected.min1 = u"1"_s;
    expected.min2 = u"-1"_s;
    expected.min3 = u"-1"_s;
    expected.factorySetting = u"0"_s;
    expected.functionCode = u"0"_s;
    expected.rangeCheck = u"0"_s;
    EXPECT_EQ(collected(1, u""_s), expected);
}

struct CellCase
{
    int column;
    QString cell;
    QString PrRecord::*field;
    QString stored;
};

class CollectedCell : public testing::TestWithParam<CellCase>
{
};

TEST_P(CollectedCell, becomesItsField)
{
    const auto &[column, cell, field, stored] = GetParam();
    EXPECT_EQ(collected(column, cell).*field, stored);
}

INSTANTIATE_TEST_SUITE_P(Cells, CollectedCell,
    testing::ValuesIn(std::vector<CellCase>{
        {1, u"A1 "_s, &PrRecord::number, u"A1 "_s},
        {2, u" Name"_s, &PrRecord::name, u" Name"_s},
        {4, u"1"_s, &PrRecord::rangeCheck, u"1"_s},
        {4, u"0"_s, &PrRecord::rangeCheck, u"0"_s},
        {4, u"-1"_s, &PrRecord::rangeCheck, u"1"_s},
        {4, u"a,b"_s, &PrRecord::rangeCheck, u"0"_s},
        {8, u"min-1"_s, &PrRecord::unit, u"min-1"_s},
        {9, u"1,5"_s, &PrRecord::factorySetting, u"1.5"_s},
        {10, u"01079"_s, &PrRecord::helpId, u"01079"_s},
        {11, u"FFFF"_s, &PrRecord::functionCode, u"-1"_s},
        {11, u"0003"_s, &PrRecord::functionCode, u"3"_s},
        {11, u"8000"_s, &PrRecord::functionCode, u"-32768"_s},
        {11, u"7fff"_s, &PrRecord::functionCode, u"32767"_s},
        {11, u"xyz"_s, &PrRecord::functionCode, u"0"_s},
    }));

INSTANTIATE_TEST_SUITE_P(Increments, CollectedCell,
    testing::ValuesIn(std::vector<CellCase>{
        {5, u"0.1"_s, &PrRecord::min1, u"0.1"_s},
        {5, u"No"_s, &PrRecord::min1, u"1"_s},
        {5, u"0.10"_s, &PrRecord::min1, u"1"_s},
        {6, u"0.01"_s, &PrRecord::min2, u"0.01"_s},
        {6, u"No"_s, &PrRecord::min2, u"-1"_s},
        {6, u"1 "_s, &PrRecord::min2, u"-1"_s},
        {7, u"0.001"_s, &PrRecord::min3, u"0.001"_s},
        {7, u"2"_s, &PrRecord::min3, u"-1"_s},
        {7, u"1"_s, &PrRecord::min3, u"1"_s},
    }));

TEST(Collecting, countsTheConditionsItself)
{
    FakeGrid grid;
    grid.rows = {FakeGrid::emptyRow()};
    grid.rows[0][11] = u"9"_s;
    grid.rows[0][12] = u"79=1,X=2"_s;
    ASSERT_TRUE(CollectPrRecords(grid));
    EXPECT_EQ(PrRecords[0].conditionCount, 1);
    EXPECT_EQ(PrRecords[0].conditions, (QList<PrCondition>{{u"79"_s, 0, u"1"_s, {}}}));
}

TEST(Collecting, holdsExactlyTheGridsRows)
{
    PrRecords.resize(7);
    PrRecords[0].name = u"old"_s;
    FakeGrid grid;
    grid.rows = {FakeGrid::emptyRow(), FakeGrid::emptyRow()};
    grid.rows[1][0] = u"second"_s;
    ASSERT_TRUE(CollectPrRecords(grid));
    ASSERT_EQ(PrRecords.size(), 2);
    EXPECT_EQ(PrRecords[0].name, u""_s);
    EXPECT_EQ(PrRecords[1].number, u"second"_s);
}

TEST(Collecting, stopsAtANumberThatItsFieldCannotHold)
{
    const QString tooManyConditions = u"1=1,"_s.repeated(32768);
    const QList<std::pair<int, QString>> cells = {{11, u"10000"_s}, {3, u"1e39"_s}, {13, tooManyConditions}};
    for (const auto &[column, cell] : cells) {
        FakeGrid grid;
        grid.rows = {FakeGrid::emptyRow()};
        grid.rows[0][column - 1] = cell;
        EXPECT_EQ(CollectPrRecords(grid), FailureCode::Overflow) << column;
    }
}

} // namespace
