#include "document/MachineInfoText.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct OptionCase
{
    QString text;
    QStringList options;
};

class OptionsOfText : public testing::TestWithParam<OptionCase>
{
};

TEST_P(OptionsOfText, dropEmptyPieces)
{
    EXPECT_EQ(optionsOfText(GetParam().text), GetParam().options);
}

INSTANTIATE_TEST_SUITE_P(Texts, OptionsOfText,
    testing::ValuesIn(std::vector<OptionCase>{
        {u""_s, {u"xx"_s}},
        {u"  "_s, {u"xx"_s}},
        {u",,"_s, {u"xx"_s}},
        {u"A"_s, {u"A"_s}},
        {u",A,,B,"_s, {u"A"_s, u"B"_s}},
        {u"A, B"_s, {u"A"_s, u" B"_s}},
    }));

class TextOfOptions : public testing::TestWithParam<OptionCase>
{
};

TEST_P(TextOfOptions, joinsThemUnlessTheyStandForNone)
{
    EXPECT_EQ(optionText(GetParam().options), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Lists, TextOfOptions,
    testing::ValuesIn(std::vector<OptionCase>{
        {u""_s, {}},
        {u""_s, {u"xx"_s}},
        {u""_s, {u"xx"_s, u"A"_s}},
        {u"A,xx"_s, {u"A"_s, u"xx"_s}},
        {u"XX"_s, {u"XX"_s}},
        {u"A,B,C"_s, {u"A"_s, u"B"_s, u"C"_s}},
    }));

TEST(MachineCode, isHexadecimal)
{
    for (const QString &code : {u"1A"_s, u"0"_s, u"ff"_s, u"FFFF"_s}) {
        EXPECT_TRUE(isMachineCode(code)) << code.toStdString();
    }
    for (const QString &code : {u""_s, u"1G"_s, u"G"_s, u"-1"_s, u"1.5"_s, u"&H1"_s}) {
        EXPECT_FALSE(isMachineCode(code)) << code.toStdString();
    }
}

struct CapacityCase
{
    CapacityTexts row;
    std::optional<CapacityTexts> stored;
};

class StoredCapacity : public testing::TestWithParam<CapacityCase>
{
};

TEST_P(StoredCapacity, isNormalisedWhenBothAreNumbers)
{
    EXPECT_EQ(storedCapacity(GetParam().row), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoredCapacity,
    testing::ValuesIn(std::vector<CapacityCase>{
        {{u"0.40"_s, u" 2,5 "_s}, CapacityTexts{u"0.4"_s, u"2.5"_s}},
        {{u"007"_s, u"12"_s}, CapacityTexts{u"7"_s, u"12"_s}},
        {{u"1"_s, u""_s}, std::nullopt},
        {{u""_s, u"1"_s}, std::nullopt},
        {{u"1kW"_s, u"1"_s}, std::nullopt},
        {{u"1"_s, u"x"_s}, std::nullopt},
    }));

} // namespace
