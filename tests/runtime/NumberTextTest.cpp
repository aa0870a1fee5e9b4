#include "runtime/NumberText.h"

#include "runtime/Country.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct NumericCase
{
    QString text;
    std::optional<double> value;
};

class NumericText : public testing::TestWithParam<NumericCase>
{
protected:
    NumericText() { setCountryCode(1); }
    ~NumericText() override { setCountryCode(0); }
};

TEST_P(NumericText, hasItsValueOrIsNotANumber)
{
    EXPECT_EQ(numericValue(GetParam().text), GetParam().value) << GetParam().text.toStdString();
    EXPECT_EQ(isNumeric(GetParam().text), GetParam().value.has_value());
}

constexpr auto none = std::nullopt;

INSTANTIATE_TEST_SUITE_P(Plain, NumericText,
    testing::ValuesIn(std::vector<NumericCase>{
        {u""_s, none},
        {u" "_s, none},
        {u"0"_s, 0},
        {u"1"_s, 1},
        {u"-1"_s, -1},
        {u"+1"_s, 1},
        {u"--1"_s, none},
        {u"++1"_s, none},
        {u"+-1"_s, -1},
        {u"-"_s, none},
        {u"."_s, none},
        {u"1."_s, 1},
        {u".5"_s, 0.5},
        {u"-.5"_s, -0.5},
        {u"1.5"_s, 1.5},
        {u"007"_s, 7},
        {u"-0"_s, 0},
        {u"1.2.3"_s, none},
        {u"1/2"_s, none},
        {u"1:30"_s, none},
        {u"123456789012345678"_s, 123456789012345678.0},
    }));

INSTANTIATE_TEST_SUITE_P(Separators, NumericText,
    testing::ValuesIn(std::vector<NumericCase>{
        {u"1,5"_s, 15},
        {u"1,234"_s, 1234},
        {u",5"_s, none},
        {u"5,"_s, 5},
        {u"1.5,0"_s, none},
    }));

INSTANTIATE_TEST_SUITE_P(Exponents, NumericText,
    testing::ValuesIn(std::vector<NumericCase>{
        {u"1e5"_s, 1e5},
        {u"1E+5"_s, 1e5},
        {u"1e-5"_s, 1e-5},
        {u"1d5"_s, none},
        {u"1e"_s, none},
        {u"1e+"_s, none},
        {u"e5"_s, none},
        {u"1e400"_s, none},
        {u"1e-400"_s, 0},
        {u"1e99999999999"_s, none},
    }));

INSTANTIATE_TEST_SUITE_P(Blanks, NumericText,
    testing::ValuesIn(std::vector<NumericCase>{
        {u"  7  "_s, 7},
        {u"\t7"_s, 7},
        {u"7\n"_s, 7},
        {u"7 8"_s, none},
        {u"- 5"_s, -5},
        {u"\u30001"_s, 1},
        {u"\u00A01"_s, 1},
        {u"\uFF11"_s, none},
    }));

INSTANTIATE_TEST_SUITE_P(Accounting, NumericText,
    testing::ValuesIn(std::vector<NumericCase>{
        {u"5-"_s, -5},
        {u"5 -"_s, -5},
        {u"5+"_s, 5},
        {u"-5-"_s, none},
        {u"(5)"_s, -5},
        {u"(-5)"_s, -5},
        {u"(5"_s, none},
        {u"5)"_s, none},
        {u"$5"_s, 5},
        {u"5$"_s, 5},
        {u"-$5"_s, -5},
        {u"\\5"_s, none},
        {u"5%"_s, none},
    }));

INSTANTIATE_TEST_SUITE_P(Radix, NumericText,
    testing::ValuesIn(std::vector<NumericCase>{
        {u"&H1A"_s, 26},
        {u"&h1a"_s, 26},
        {u"&H"_s, none},
        {u"&"_s, none},
        {u"&H1G"_s, none},
        {u"&HFFFF"_s, 65535},
        {u"&HFFFFFFFF"_s, none},
        {u"&O17"_s, 15},
        {u"&O18"_s, none},
        {u"0x1A"_s, none},
        {u"1A"_s, none},
        {u"-&H1A"_s, 26},
        {u" &H1A "_s, 26},
    }));

INSTANTIATE_TEST_SUITE_P(Words, NumericText,
    testing::ValuesIn(std::vector<NumericCase>{
        {u"abc"_s, none},
        {u"5abc"_s, none},
        {u"Inf"_s, none},
        {u"NaN"_s, none},
        {u"True"_s, none},
    }));

TEST(NumericTextInJapan, takesTheYenSignAndNotTheDollar)
{
    setCountryCode(81);
    EXPECT_EQ(numericValue(u"\\5"), 5);
    EXPECT_EQ(numericValue(u"\u00A55"), 5);
    EXPECT_EQ(numericValue(u"$5"), none);
    setCountryCode(0);
}

TEST(LeadingNumberText, isWhatIsTakenForTheNumber)
{
    const std::pair<QString, QString> cases[] = {{u" \t-1.5e3x"_s, u"-1.5e3"_s}, {u"1e+"_s, u"1"_s}, {u"5."_s, u"5."_s},
        {u".5.5"_s, u".5"_s}, {u"+7 8"_s, u"+7"_s}, {u"."_s, QString()}, {u"-"_s, QString()}, {u"- 5"_s, QString()},
        {u"e5"_s, QString()}, {QString(), QString()}};
    for (const auto &[text, number] : cases) {
        EXPECT_EQ(leadingNumberText(text).toString(), number) << text.toStdString();
        EXPECT_EQ(leadingNumber(text), leadingNumber(number)) << text.toStdString();
    }
}

struct Int16Case
{
    QString text;
    Result<qint16> result;
};

Int16Case gives(const QString &text, int value)
{
    return {text, static_cast<qint16>(value)};
}

class Int16Text : public testing::TestWithParam<Int16Case>
{
};

TEST_P(Int16Text, convertsWithHalvesToEven)
{
    EXPECT_EQ(toInt16(QStringView(GetParam().text)), GetParam().result) << GetParam().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Texts, Int16Text,
    testing::Values(gives(u"0.5"_s, 0), gives(u"1.5"_s, 2), gives(u"2.5"_s, 2), gives(u"3.5"_s, 4), gives(u"-0.5"_s, 0),
        gives(u"-1.5"_s, -2), gives(u"-2.5"_s, -2), gives(u"2.4999"_s, 2), gives(u"32767"_s, 32767),
        gives(u"32767.4"_s, 32767), Int16Case{u"32767.5"_s, FailureCode::Overflow},
        Int16Case{u"32768"_s, FailureCode::Overflow}, gives(u"-32768"_s, -32768),
        Int16Case{u"-32769"_s, FailureCode::Overflow}, gives(u"1e3"_s, 1000), gives(u"&HFFFF"_s, -1),
        gives(u"&H8000"_s, -32768), gives(u"&H7FFF"_s, 32767), Int16Case{u"&H10000"_s, FailureCode::Overflow},
        Int16Case{u"3abc"_s, FailureCode::TypeMismatch}, Int16Case{u""_s, FailureCode::TypeMismatch},
        Int16Case{u"1e400"_s, FailureCode::Overflow}, gives(u" 3 "_s, 3), gives(u"0.01"_s, 0), gives(u".09"_s, 0)));

TEST(Int16FromHex, takesLeadingDigitsAsBits)
{
    EXPECT_EQ(hexToInt16(u""), qint16(0));
    EXPECT_EQ(hexToInt16(u"xyz"), qint16(0));
    EXPECT_EQ(hexToInt16(u"0003"), qint16(3));
    EXPECT_EQ(hexToInt16(u"00001a"), qint16(26));
    EXPECT_EQ(hexToInt16(u" 1A"), qint16(26));
    EXPECT_EQ(hexToInt16(u"12G4"), qint16(0x12));
    EXPECT_EQ(hexToInt16(u"7FFF"), qint16(32767));
    EXPECT_EQ(hexToInt16(u"8000"), qint16(-32768));
    EXPECT_EQ(hexToInt16(u"FFFF"), qint16(-1));
    EXPECT_EQ(hexToInt16(u"10000").failure().code, FailureCode::Overflow);
    EXPECT_EQ(hexToInt16(u"FFFFFFFFFFFFFFFFFFFF").failure().code, FailureCode::Overflow);
}

TEST(BooleanText, isAWordOrANumber)
{
    for (const auto &text : {u"True"_s, u"true"_s, u"TRUE"_s, u"1"_s, u"-1"_s, u"2"_s, u"#TRUE#"_s, u"0.5"_s}) {
        EXPECT_EQ(toBoolean(text), true) << text.toStdString();
    }
    for (const auto &text : {u"False"_s, u"FALSE"_s, u"0"_s, u"#FALSE#"_s}) {
        EXPECT_EQ(toBoolean(text), false) << text.toStdString();
    }
    for (const auto &text : {u""_s, u"yes"_s, u"Truely"_s}) {
        EXPECT_EQ(toBoolean(text).failure().code, FailureCode::TypeMismatch) << text.toStdString();
    }
}

struct LeadingCase
{
    QString text;
    double value;
};

class LeadingNumber : public testing::TestWithParam<LeadingCase>
{
};

TEST_P(LeadingNumber, isTheLongestNumberAtTheBeginning)
{
    const auto &[text, value] = GetParam();
    EXPECT_EQ(leadingNumber(text), value) << text.toStdString();
    EXPECT_EQ(leadingNumber(QByteArrayView(text.toLatin1())), value) << text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Texts, LeadingNumber,
    testing::ValuesIn(std::vector<LeadingCase>{
        {u""_s, 0},
        {u"abc"_s, 0},
        {u"-"_s, 0},
        {u"."_s, 0},
        {u"007"_s, 7},
        {u"  12 34"_s, 12},
        {u"-1.5x"_s, -1.5},
        {u"+3"_s, 3},
        {u".25"_s, 0.25},
        {u"5."_s, 5},
        {u"1.2.3"_s, 1.2},
        {u"1e3"_s, 1000},
        {u"1E-2z"_s, 0.01},
        {u"1e"_s, 1},
        {u"1e+"_s, 1},
        {u"1d5"_s, 1},
        {u"0.1"_s, 0.1},
        {u"123456.789012345"_s, 123456.789012345},
        {u"1234567890.12345678"_s, 1234567890.12345678},
        {u"0.0000000000000000000000012345678901234567890"_s, 1.2345678901234567890e-24},
        {u"1e400"_s, HUGE_VAL},
        {u"-1e400"_s, -HUGE_VAL},
        {u"1e-400"_s, 0},
    }));

struct FormatCase
{
    double value;
    QString text;
};

class SingleFormat : public testing::TestWithParam<FormatCase>
{
};

TEST_P(SingleFormat, hasAtMostSevenDigits)
{
    EXPECT_EQ(singleText(static_cast<float>(GetParam().value)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Values, SingleFormat,
    testing::ValuesIn(std::vector<FormatCase>{
        {0, u"0"_s},
        {-0.0, u"0"_s},
        {1, u"1"_s},
        {-1, u"-1"_s},
        {0.1, u"0.1"_s},
        {-0.25, u"-0.25"_s},
        {30, u"30"_s},
        {9999, u"9999"_s},
        {0.01, u"0.01"_s},
        {0.001, u"0.001"_s},
        {0.0001, u"0.0001"_s},
        {1e-05, u"1E-05"_s},
        {0.000123, u"0.000123"_s},
        {0.333333333, u"0.3333333"_s},
        {6553.5, u"6553.5"_s},
        {1234.5678, u"1234.568"_s},
        {1234567, u"1234567"_s},
        {9999999, u"9999999"_s},
        {3412452.5, u"3412453"_s},
        {10000000, u"1E+07"_s},
        {12345678, u"1.234568E+07"_s},
        {1e20, u"1E+20"_s},
        {3.4e38, u"3.4E+38"_s},
        {-3.4e38, u"-3.4E+38"_s},
        {1e-38, u"9.999999E-39"_s},
    }));

class DoubleFormat : public testing::TestWithParam<FormatCase>
{
};

TEST_P(DoubleFormat, hasAtMostFifteenDigits)
{
    EXPECT_EQ(doubleText(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Values, DoubleFormat,
    testing::ValuesIn(std::vector<FormatCase>{
        {0, u"0"_s},
        {-0.0, u"0"_s},
        {1.5, u"1.5"_s},
        {0.30000000000000004, u"0.3"_s},
        {1e14, u"100000000000000"_s},
        {1e15, u"1E+15"_s},
        {123456789012345, u"123456789012345"_s},
        {1234567890123456, u"1.23456789012346E+15"_s},
        {5741211940908185, u"5.74121194090819E+15"_s},
        {0.0001, u"0.0001"_s},
        {1e-05, u"1E-05"_s},
        {1.0 / 3, u"0.333333333333333"_s},
        {1e100, u"1E+100"_s},
        {999999999999999.5, u"1E+15"_s},
    }));

} // namespace
