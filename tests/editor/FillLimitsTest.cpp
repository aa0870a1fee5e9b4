#include "editor/FillLimits.h"

#include <gtest/gtest.h>

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
    testing::Values(LimitCase{number, u"0"_s, {}}, LimitCase{number, u"1000"_s, {}}, LimitCase{number, u""_s, {}},
        LimitCase{number, u"1001"_s, FillRefusal::NotInRange}, LimitCase{number, u"-1"_s, FillRefusal::NotInRange},
        LimitCase{number, u"x"_s, FillRefusal::NotInRange}, LimitCase{number, u"1.5"_s, FillRefusal::NotInRange},
        LimitCase{CellType::number(1, 2), u"1.5"_s, {}},
        LimitCase{CellType::number(1, 2), u"0.5"_s, FillRefusal::NotInRange}, LimitCase{shortText, u"abc"_s, {}},
        LimitCase{shortText, u"abcd"_s, FillRefusal::TooLong}, LimitCase{CellType::text(), u"abcd"_s, {}},
        LimitCase{CellType::text(), u"a\nb"_s, FillRefusal::LineBreak}, LimitCase{choice, u"No"_s, {}},
        LimitCase{choice, u"1"_s, {}}, LimitCase{choice, u""_s, {}}, LimitCase{choice, u"2"_s, FillRefusal::NoChoice},
        LimitCase{choice, u"no"_s, FillRefusal::NoChoice}, LimitCase{box, u"1"_s, {}}, LimitCase{box, u"0"_s, {}},
        LimitCase{box, u"yes"_s, FillRefusal::NoChoice}));

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
