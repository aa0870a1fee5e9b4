#include "document/FuncCodeText.h"

#include "document/FieldText.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct PathCase
{
    QString path;
    QString model;
    FunctionLabels labels;
};

class ModelOfPath : public testing::TestWithParam<PathCase>
{
};

TEST_P(ModelOfPath, isTheNameUpToItsFirstPointInCapitals)
{
    EXPECT_EQ(modelName(GetParam().path), GetParam().model);
    EXPECT_EQ(functionLabels(GetParam().path), GetParam().labels);
}

INSTANTIATE_TEST_SUITE_P(Paths, ModelOfPath,
    testing::ValuesIn(std::vector<PathCase>{
        {u"C:\\data\\kqm3xyz.inv"_s, u"KQM3XYZ"_s, FunctionLabels::Kqm3},
        {u"/home/user/kqm3xyz.inv"_s, u"KQM3XYZ"_s, FunctionLabels::Kqm3},
        {u"KQM3"_s, u"KQM3"_s, FunctionLabels::Kqm3},
        {u"Kqm3.a.b.inv"_s, u"KQM3"_s, FunctionLabels::Kqm3},
        {u"C:\\KQM3\\xt200.inv"_s, u"XT200"_s, FunctionLabels::Normal},
        {u"/KQM3/xt200.inv"_s, u"XT200"_s, FunctionLabels::Normal},
        {u"abc.KQM3.inv"_s, u"ABC"_s, FunctionLabels::Normal},
        {u"xkqm3.inv"_s, u"XKQM3"_s, FunctionLabels::Normal},
        {u"kqm.3inv"_s, u"KQM"_s, FunctionLabels::Normal},
        {u"No Name"_s, u"NO NAME"_s, FunctionLabels::Normal},
        {u".kqm3"_s, u""_s, FunctionLabels::Normal},
        {u"C:\\kqm3\\"_s, u""_s, FunctionLabels::Normal},
        {u""_s, u""_s, FunctionLabels::Normal},
    }));

struct CodeCase
{
    qint16 code;
    QString text;
};

class CodeText : public testing::TestWithParam<CodeCase>
{
};

TEST_P(CodeText, hasFourHexadecimalDigits)
{
    EXPECT_EQ(functionCodeText(GetParam().code), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Codes, CodeText,
    testing::ValuesIn(std::vector<CodeCase>{
        {0, u"0000"_s},
        {5, u"0005"_s},
        {10, u"000A"_s},
        {0xFF, u"00FF"_s},
        {0x7000, u"7000"_s},
        {-1, u"FFFF"_s},
        {-32768, u"8000"_s},
        {-32767, u"8001"_s},
    }));

// What the two sets offer, bit by bit: the boxes that a user sees.
constexpr char normalSet[] = "111111111111000";
constexpr char kqm3Set[] = "111111110111111";

class EveryCode : public testing::TestWithParam<FunctionLabels>
{
};

TEST_P(EveryCode, ticksTheGroupsOfItsBitsAndComesBackWithoutTheOthers)
{
    const char *offered = GetParam() == FunctionLabels::Normal ? normalSet : kqm3Set;
    for (int value = 0; value < 65536; ++value) {
        const auto code = static_cast<qint16>(value);
        const FunctionGroups groups = groupsOfCode(code, GetParam());
        int rebuilt = 0;
        int weight = 1;
        for (int group = 0; group < FunctionGroupCount; ++group) {
            const bool ticked = offered[group] == '1' && value / weight % 2 == 1;
            ASSERT_EQ(groups[group], ticked) << "code " << value << " group " << group;
            rebuilt += ticked ? weight : 0;
            weight *= 2;
        }
        ASSERT_EQ(codeOfGroups(groups, GetParam()), rebuilt) << "code " << value;
    }
}

TEST_P(EveryCode, readsNoGroupThatTheSetDoesNotHave)
{
    FunctionGroups all;
    all.fill(true);
    EXPECT_EQ(codeOfGroups(all, GetParam()), GetParam() == FunctionLabels::Normal ? 0x0FFF : 0x7EFF);
}

TEST_P(EveryCode, offersTheSetsGroups)
{
    const char *offered = GetParam() == FunctionLabels::Normal ? normalSet : kqm3Set;
    for (int group = 0; group < FunctionGroupCount; ++group) {
        EXPECT_EQ(hasFunctionGroup(GetParam(), group), offered[group] == '1') << "group " << group;
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, EveryCode, testing::Values(FunctionLabels::Normal, FunctionLabels::Kqm3));

} // namespace
