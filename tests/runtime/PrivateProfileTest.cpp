#include "runtime/PrivateProfile.h"

#include "runtime/AnsiText.h"
#include "tests/support/GrowthOfWork.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int bufferSize = 128;

std::optional<QString> nameIn(const QByteArray &bytes, int codePage = 1252)
{
    setAnsiCodePageNumber(codePage);
    const auto value = PrivateProfile(bytes).value(u"Inverter"_s, u"Name"_s, bufferSize);
    setAnsiCodePageNumber(0);
    return value;
}

struct ProfileCase
{
    const char *what;
    QByteArray bytes;
    std::optional<QString> value;
};

void PrintTo(const ProfileCase &profile, std::ostream *out)
{
    *out << profile.what;
}

class ProfileLookUp : public testing::TestWithParam<ProfileCase>
{
};

TEST_P(ProfileLookUp, findsWhatTheSystemCallFinds)
{
    EXPECT_EQ(nameIn(GetParam().bytes), GetParam().value);
}

constexpr auto absent = std::nullopt;

INSTANTIATE_TEST_SUITE_P(SectionsAndKeys, ProfileLookUp,
    testing::ValuesIn(std::vector<ProfileCase>{
        {"plain", "[Inverter]\r\nName=a\r\n", u"a"_s},
        {"other case", "[INVERTER]\r\nNAME=a\r\n", u"a"_s},
        {"blanks inside the brackets", "[ Inverter ]\r\nName=a\r\n", u"a"_s},
        {"blanks before the brackets", "  [Inverter]\r\nName=a\r\n", u"a"_s},
        {"two closing brackets", "[Inverter]]\r\nName=a\r\n", absent},
        {"a closing bracket in the text after it", "[Inverter] [x]\r\nName=a\r\n", absent},
        {"text after the bracket", "[Inverter]x\r\nName=a\r\n", u"a"_s},
        {"no closing bracket", "[Inverter\r\nName=a\r\n", absent},
        {"key twice", "[Inverter]\r\nName=a\r\nName=b\r\n", u"a"_s},
        {"key twice, first without a value", "[Inverter]\r\nName=\r\nName=b\r\n", u""_s},
        {"key twice, first without equals sign", "[Inverter]\r\nName\r\nName=b\r\n", absent},
        {"section twice", "[Inverter]\r\nCode=a\r\n[Inverter]\r\nName=b\r\n", absent},
        {"key in another section", "[Other]\r\nName=b\r\n[Inverter]\r\nCode=a\r\n", absent},
        {"key before any section", "Name=b\r\n[Inverter]\r\n", absent},
        {"no section", "Name=b\r\n", absent},
        {"empty file", "", absent},
        {"section line only", "[Inverter]", absent},
        {"no line end at the end", "[Inverter]\nName=a", u"a"_s},
        {"line begins with a semicolon", "[Inverter]\r\n;Name=a\r\n", absent},
        {"byte-order mark", "\xEF\xBB\xBF[Inverter]\r\nName=a\r\n", u"a"_s},
    }));

INSTANTIATE_TEST_SUITE_P(Values, ProfileLookUp,
    testing::ValuesIn(std::vector<ProfileCase>{
        {"blanks around", "[Inverter]\r\n  Name =  a b  \r\n", u"a b"_s},
        {"tabs and form feeds around", "[Inverter]\r\n\tName\v=\f a\t\r\n", u"a"_s},
        {"no-break space stays",
            "[Inverter]\r\nName=\xA0"
            "a\r\n",
            u"\u00A0a"_s},
        {"double quotes", "[Inverter]\r\nName=\" a \"\r\n", u" a "_s},
        {"single quotes", "[Inverter]\r\nName=' a '\r\n", u" a "_s},
        {"unlike quotes", "[Inverter]\r\nName=\"a'\r\n", u"\"a'"_s},
        {"one quote", "[Inverter]\r\nName=\"a\r\n", u"\"a"_s},
        {"a quote alone", "[Inverter]\r\nName=\"\r\n", u"\""_s},
        {"empty quotes", "[Inverter]\r\nName=\"\"\r\n", u""_s},
        {"no value", "[Inverter]\r\nName=\r\n", u""_s},
        {"no equals sign", "[Inverter]\r\nName\r\n", absent},
        {"two equals signs", "[Inverter]\r\nName=a=b\r\n", u"a=b"_s},
        {"semicolon", "[Inverter]\r\nName=a ; note\r\n", u"a ; note"_s},
        {"LF line ends", "[Inverter]\nName=a\n", u"a"_s},
        {"CR line ends", "[Inverter]\rName=a\r", u"a"_s},
        {"NUL in the value", QByteArray("[Inverter]\r\nName=ab\0cd\r\n", 25), u"ab"_s},
        {"end-of-file mark", "[Inverter]\r\nName=a\x1A\r\n", u"a"_s},
    }));

QByteArray nameOf(const QByteArray &value)
{
    return "[Inverter]\r\nName=" + value + "\r\n";
}

TEST(ProfileBuffer, keeps127Bytes)
{
    EXPECT_EQ(nameIn(nameOf(QByteArray(127, 'x'))), QString(127, u'x'));
    EXPECT_EQ(nameIn(nameOf(QByteArray(128, 'x'))), QString(127, u'x'));
    EXPECT_EQ(nameIn(nameOf('"' + QByteArray(126, 'x') + '"')), QString(126, u'x'));
    EXPECT_EQ(nameIn(nameOf('"' + QByteArray(127, 'x') + '"')), QString(127, u'x'));
    EXPECT_EQ(nameIn(nameOf(QByteArray(100000, 'x'))), QString(127, u'x'));
}

TEST(ProfileBuffer, neverEndsInsideACharacter)
{
    const QByteArray kanji = "\x8A\xBF";
    EXPECT_EQ(nameIn(nameOf(kanji.repeated(64)), 932), QString(63, QChar(0x6F22)));
    EXPECT_EQ(nameIn(nameOf('x' + kanji.repeated(63)), 932), u'x' + QString(63, QChar(0x6F22)));
    EXPECT_EQ(nameIn(nameOf(kanji.repeated(63) + "\xB1\xB1"), 932), QString(63, QChar(0x6F22)) + QChar(0xFF71));
}

TEST(ProfileBuffer, countsTheBytesOfUndecodableOnesOnce)
{
    EXPECT_EQ(nameIn(nameOf(QByteArray(200, '\xFD')), 932), QString(127, QChar(0xF7FD)));
}

TEST(ProfileText, keepsTheIdeographicSpaceAtItsEnds)
{
    EXPECT_EQ(nameIn(nameOf("\x81\x40 a\x81\x40 "), 932), u"\u3000 a\u3000"_s);
}

TEST(ProfileFile, isEmptyWhenItCannotBeRead)
{
    const auto profile = PrivateProfile::fromFile(u"/nowhere/at all.ini"_s);
    EXPECT_EQ(profile.value(u"Inverter"_s, u"Name"_s, bufferSize), std::nullopt);
    EXPECT_EQ(PrivateProfile::fromFile(u"/"_s).value(u"Inverter"_s, u"Name"_s, bufferSize), std::nullopt);
}

TEST(ProfileSpeed, doesNotSuffocateInManyKeys)
{
    constexpr int few = 5'000;
    constexpr int growth = 8;
    const auto lookUpAll = [](int count) {
        QByteArray bytes = "[Inverter]\n";
        for (int i = 0; i < count; ++i) {
            bytes += "Capacity" + QByteArray::number(i) + "=1\n";
        }
        const PrivateProfile profile(bytes);
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(profile.value(u"Inverter"_s, u"Capacity"_s + QString::number(i), bufferSize));
        }
    };
    EXPECT_LT(growthOfWork(lookUpAll, few, growth), 3 * growth); // growth * growth by a search from the top for each
}

} // namespace
