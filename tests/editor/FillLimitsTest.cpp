#include "editor/FillLimits.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const CellType number = CellType::integer(0, 1000);
const CellType shortText = CellType::text(3);
const CellType box = CellType::checkBox();
const CellType choice = CellType::comboBox({u"1"_s}, {}, {u"No"_s});

} // namespace

struct LimitCase
{
    CellType type;
    QString text;
    std::optional<FillRefusal> refusal;
};

void PrintTo(const LimitCase &test, std::ostream *out)
{
    *out << test.text.toStdString();
}

class FillLimits : public testing::TestWithParam<LimitCase>
{
};

TEST_P(FillLimits, areThoseOfTyping)
{
    EXPECT_EQ(fillRefusal(GetParam().type, GetParam().text), GetParam().refusal);
}

INSTANTIATE_TEST_SUITE_P(Texts, FillLimits,
    testing::ValuesIn(std::vector<LimitCase>{
        {number, u"0"_s, {}},
        {number, u"1000"_s, {}},
        {number, u""_s, {}},
        {number, u"1001"_s, FillRefusal::NotInRange},
        {number, u"-1"_s, FillRefusal::NotInRange},
        {number, u"x"_s, FillRefusal::NotInRange},
        {number, u"1.5"_s, FillRefusal::NotInRange},
        {CellType::number(1, 2), u"1.5"_s, {}},
        {CellType::number(1, 2), u"0.5"_s, FillRefusal::NotInRange},
        {shortText, u"abc"_s, {}},
        {shortText, u"abcd"_s, FillRefusal::TooLong},
        {CellType::text(), u"abcd"_s, {}},
        {CellType::text(), u"a\nb"_s, FillRefusal::LineBreak},
        {choice, u"No"_s, {}},
        {choice, u"1"_s, {}},
        {choice, u""_s, {}},
        {choice, u"2"_s, FillRefusal::NoChoice},
        {choice, u"no"_s, FillRefusal::NoChoice},
        {box, u"1"_s, {}},
        {box, u"0"_s, {}},
        {box, u"yes"_s, FillRefusal::NoChoice},
    }));

TEST(FilledText, isATickOrANumberWhereTheCellHoldsOne)
{
    EXPECT_EQ(filledText(box, u""_s), u"0"_s);
    EXPECT_EQ(filledText(box, u"0"_s), u"0"_s);
    EXPECT_EQ(filledText(box, u"5"_s), u"1"_s);
    EXPECT_EQ(filledText(box, u"yes"_s), u"yes"_s);
    EXPECT_EQ(filledText(number, u"5"_s), u"5"_s);
    EXPECT_EQ(filledText(number, u"007"_s), u"7"_s);
    EXPECT_EQ(filledText(number, u""_s), u""_s);
}
