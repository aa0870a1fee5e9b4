#include "editor/FillSeries.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const CellType anyText = CellType::text();
const CellType integer = CellType::integer(0, 1000);

std::vector<QString> parts(const QString &joined)
{
    const QStringList parts = joined.split(u'|');
    return joined.isNull() ? std::vector<QString>() : std::vector<QString>(parts.begin(), parts.end());
}

} // namespace

struct SeriesCase
{
    QString given; ///< texts joined by "|"
    QString next;
    SeriesRule rule = SeriesRule::Counts;
    CellType type = anyText;
};

void PrintTo(const SeriesCase &test, std::ostream *out)
{
    *out << test.given.toStdString();
}

class Series : public testing::TestWithParam<SeriesCase>
{
};

TEST_P(Series, goesOn)
{
    const auto &[given, next, rule, type] = GetParam();
    const FillSeries series(parts(given), type, rule);
    const std::vector<QString> expected = parts(next);
    for (int place = 0; place < int(expected.size()); ++place) {
        EXPECT_EQ(series.at(place).value_or(u"the end"_s), expected[size_t(place)]);
    }
}

INSTANTIATE_TEST_SUITE_P(Numbers, Series,
    testing::ValuesIn(std::vector<SeriesCase>{
        {u"10|20"_s, u"30|40|50"_s},
        {u"10|20|30"_s, u"40|50"_s},
        {u"7"_s, u"8|9|10"_s},
        {u"5|5"_s, u"5|5"_s},
        {u"30|20"_s, u"10|0|-10"_s},
        {u"-2|-1"_s, u"0|1"_s},
        {u"-5"_s, u"-4"_s},
        {u"0.1|0.2"_s, u"0.3|0.4"_s},
        {u"0.8|0.9"_s, u"1.0|1.1"_s},
        {u"0.5"_s, u"1.5|2.5"_s},
        {u"1|1.5"_s, u"2|2.5|3"_s},
        {u"1.50|1.75"_s, u"2.00|2.25"_s},
        {u".5|1"_s, u"1.5|2"_s},
        {u"0.02|0.01"_s, u"0.00|-0.01"_s},
        {u"99|100"_s, u"101"_s},
        {u"007"_s, u"008|009|010"_s},
        {u"007"_s, u"8|9"_s, SeriesRule::Counts, integer},
        {u"9999999999999"_s, u"10000000000000"_s},
    }));

INSTANTIATE_TEST_SUITE_P(NumbersAfterTexts, Series,
    testing::ValuesIn(std::vector<SeriesCase>{
        {u"Pr 1"_s, u"Pr 2|Pr 3"_s},
        {u"P9"_s, u"P10|P11"_s},
        {u"No. 08|No. 09"_s, u"No. 10|No. 11"_s},
        {u"A3|A5"_s, u"A7|A9"_s},
        {u"第1"_s, u"第2"_s},
        {u"P2|P1"_s, u"P0|the end|the end"_s},
        {u"Ver 1.9"_s, u"Ver 1.10"_s},
        {u"0-0.8|0-0.9"_s, u"0-1.0"_s},
        {u"A-5"_s, u"A-6"_s},
        {u"a\n1"_s, u"a\n2"_s},
    }));

INSTANTIATE_TEST_SUITE_P(Others, Series,
    testing::ValuesIn(std::vector<SeriesCase>{
        {u"Hz"_s, u"Hz|Hz"_s},
        {u"A|B"_s, u"A|B|A|B"_s},
        {u"1|2|4"_s, u"1|2|4|1"_s},
        {u"P1|Q2"_s, u"P1|Q2|P1"_s},
        {u"1|x"_s, u"1|x|1"_s},
        {u"12345678901234"_s, u"12345678901234"_s},
        {u"9000000000000|0.5"_s, u"9000000000000|0.5"_s},
        {u"１"_s, u"１|１"_s},
        {u"0-100"_s, u"0-100|0-100"_s, SeriesRule::RepeatsOne},
        {u"0-10|0-20"_s, u"0-30"_s, SeriesRule::RepeatsOne},
        {u"1"_s, u"1|1"_s, SeriesRule::Counts, CellType::checkBox()},
        {u"1|0.1"_s, u"1|0.1|1"_s, SeriesRule::Counts, CellType::comboBox({u"1"_s, u"0.1"_s})},
        {{}, u"the end"_s},
    }));

INSTANTIATE_TEST_SUITE_P(Codes, Series,
    testing::ValuesIn(std::vector<SeriesCase>{
        {u"0009"_s, u"000A|000B"_s, SeriesRule::Hexadecimal},
        {u"0010|0020"_s, u"0030"_s, SeriesRule::Hexadecimal},
        {u"00fe"_s, u"00FF|0100"_s, SeriesRule::Hexadecimal},
        {u"A"_s, u"000B"_s, SeriesRule::Hexadecimal},
        {u"FFFE"_s, u"FFFF|the end"_s, SeriesRule::Hexadecimal},
        {u"0001|0000"_s, u"the end"_s, SeriesRule::Hexadecimal},
        {u"00G1"_s, u"00G1"_s, SeriesRule::Hexadecimal},
        {u"0x1A"_s, u"0x1A"_s, SeriesRule::Hexadecimal},
        {u"00010"_s, u"00010"_s, SeriesRule::Hexadecimal},
    }));

TEST(Series, countsThroughTheLargestFile)
{
    const FillSeries up({u"1"_s, u"9999999999999"_s}, anyText, SeriesRule::Counts);
    EXPECT_EQ(up.at(32766), u"327679999999934465"_s);
    const FillSeries down({u"9999999999999"_s, u"1"_s}, anyText, SeriesRule::Counts);
    EXPECT_EQ(down.at(32766), u"-327669999999934465"_s);
}

struct GivenCase
{
    QString texts;
    int given;
    QString added = {};
};

class GivenTexts : public testing::TestWithParam<GivenCase>
{
};

TEST_P(GivenTexts, standAboveTheFirstThatIsFree)
{
    EXPECT_EQ(givenTexts(parts(GetParam().texts), GetParam().added), GetParam().given);
}

INSTANTIATE_TEST_SUITE_P(Columns, GivenTexts,
    testing::ValuesIn(std::vector<GivenCase>{
        {u"10|20||"_s, 2},
        {u"10|||"_s, 1},
        {u"1|2|3|"_s, 3},
        {u"1|2|9|9"_s, 2},
        {u"1"_s, 1},
        {u"||"_s, 0},
        {u"|2|3"_s, 0},
        {{}, 0},
        {u"10|0|0"_s, 1, u"0"_s},
        {u"0|0|0"_s, 1, u"0"_s},
        {u"0|10|0"_s, 2, u"0"_s},
        {u"000A|0000"_s, 1, u"0000"_s},
        {u"10||30"_s, 1},
    }));
