#include "runtime/AnsiText.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QHash>
#include <QTemporaryDir>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const AnsiCodePage &japanese()
{
    return AnsiCodePage::page(932);
}

const AnsiCodePage &western()
{
    return AnsiCodePage::page(1252);
}

QByteArray twoBytes(int code)
{
    const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code)};
    return {bytes, 2};
}

/// Encodes; the bytes before a missing character are followed by "!".
QByteArray encoded(const AnsiCodePage &page, const QString &text)
{
    QByteArray bytes;
    if (page.encode(text, bytes)) {
        bytes += '!';
    }
    return bytes;
}

bool isLeadByte(int byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

/// The next code in reading order of a table of two-byte codes.
int nextCode(int code)
{
    const int trail = code & 0xFF;
    if (trail == 0xFC) {
        return code - 0xFC + 0x100 + 0x40;
    }
    return trail == 0x7E ? code + 2 : code + 1;
}

/// Adds count doubles that begin at code, with what is written for each of them beginning at written.
void addDoubles(QHash<int, int> &doubles, int code, int written, int count)
{
    for (int i = 0; i < count; ++i) {
        doubles.insert(code, written);
        code = nextCode(code);
        written = nextCode(written);
    }
}

/// The codes of page 932 for a character with another, preferred code. Three makers' extensions overlap:
/// row 13, the selection in rows ED and EE, the extension in rows FA to FC. The standard's own code goes first, then
/// row 13, then the extension in rows FA to FC.
QHash<int, int> vendorDoubles()
{
    constexpr int kanji = 360;
    QHash<int, int> doubles = {{0x8790, 0x81E0}, {0x8791, 0x81DF}, {0x8792, 0x81E7}, {0x8795, 0x81E3}, {0x8796, 0x81DB},
        {0x8797, 0x81DA}, {0x879A, 0x81E6}, {0x879B, 0x81BF}, {0x879C, 0x81BE}, {0xFA54, 0x81CA}, {0xFA58, 0x878A},
        {0xFA59, 0x8782}, {0xFA5A, 0x8784}, {0xFA5B, 0x81E6}, {0xEEF9, 0x81CA}};
    addDoubles(doubles, 0xFA4A, 0x8754, 10); // capital Roman numerals
    addDoubles(doubles, 0xEEEF, 0xFA40, 10); // small Roman numerals
    addDoubles(doubles, 0xEEFA, 0xFA55, 3); // broken bar, apostrophe, quotation mark
    addDoubles(doubles, 0xED40, 0xFA5C, kanji);
    return doubles;
}

TEST(CodePage932, comesBackFromEveryTwoByteCode)
{
    const QHash<int, int> doubles = vendorDoubles();
    ASSERT_EQ(doubles.size(), 398);
    int characters = 0;
    for (int code = 0x8140; code <= 0xFCFC; code = nextCode(code)) {
        if (!isLeadByte(code >> 8)) {
            continue;
        }
        const QString text = japanese().decode(twoBytes(code));
        characters += text.size() == 1 ? 1 : 0;
        EXPECT_EQ(encoded(japanese(), text), twoBytes(doubles.value(code, code))) << std::hex << code;
    }
    // 6879 of the standard, 83 of row 13, 374 selected, 388 of the extension, 1880 for the user's own
    EXPECT_EQ(characters, 6879 + 83 + 374 + 388 + 1880);
}

TEST(CodePage932, hasTwoCodesForTheDoublesOnly)
{
    const QHash<int, int> doubles = vendorDoubles();
    for (auto i = doubles.cbegin(); i != doubles.cend(); ++i) {
        EXPECT_EQ(japanese().decode(twoBytes(i.key())), japanese().decode(twoBytes(i.value()))) << std::hex << i.key();
    }
}

TEST(CodePage932, comesBackFromEverySingleByte)
{
    for (int byte = 0; byte <= 0xFF; ++byte) {
        const QByteArray bytes(1, static_cast<char>(byte));
        const QString text = japanese().decode(bytes);
        EXPECT_EQ(text.size(), 1) << byte;
        EXPECT_EQ(encoded(japanese(), text), bytes) << byte;
    }
}

TEST(CodePage932, readsWhatTheSystemReads)
{
    EXPECT_EQ(japanese().decode("A\\~"), u"A\\~"_s);
    EXPECT_EQ(japanese().decode("\xB6\xC0\xB6\xC5"), u"ｶﾀｶﾅ"_s);
    EXPECT_EQ(japanese().decode("\x8A\xBF\x8E\x9A"), u"漢字"_s);
    EXPECT_EQ(japanese().decode("\x81\x60\x81\x7C\x81\x91"), u"\uFF5E\uFF0D\uFFE0"_s);
    EXPECT_EQ(japanese().decode("\xF0\x40"), u"\uE000"_s);
    EXPECT_EQ(japanese().decode(QByteArray("\x00\x1A\x1C\x7F", 4)), QString::fromLatin1("\x00\x1A\x1C\x7F", 4));
}

TEST(CodePage932, keepsBytesThatItCannotDecode)
{
    EXPECT_EQ(japanese().decode("a\x80z\xFF"), u"a\uF780z\uF7FF"_s);
    // A lead byte without its trail byte, and one whose trail byte does not fit.
    EXPECT_EQ(japanese().decode("\x8A"), u"\uF78A"_s);
    EXPECT_EQ(japanese().decode("\x81 \x85@"), u"\uF781 \uF785@"_s);
    EXPECT_EQ(encoded(japanese(), u"\uF781 \uF785@\uF7FF"_s), QByteArray("\x81 \x85@\xFF"));
}

TEST(CodePage1252, comesBackFromEveryByte)
{
    for (int byte = 0; byte <= 0xFF; ++byte) {
        const QByteArray bytes(1, static_cast<char>(byte));
        const QString text = western().decode(bytes);
        EXPECT_EQ(text.size(), 1) << byte;
        EXPECT_EQ(encoded(western(), text), bytes) << byte;
    }
    EXPECT_EQ(western().decode("\x80\x93\xE9"), u"€“é"_s);
}

TEST(CodePage, stopsAtACharacterThatItDoesNotHave)
{
    QByteArray bytes = "before ";
    EXPECT_EQ(western().encode(u"ab漢c"_s, bytes), 2);
    EXPECT_EQ(bytes, "before ab");
    EXPECT_EQ(encoded(japanese(), u"漢é"_s), "\x8A\xBF!");
    EXPECT_EQ(encoded(japanese(), u"\U0001F600"_s), "!");
    // Look-alikes would come back as other characters, so they are missing too.
    EXPECT_EQ(encoded(japanese(), u"\u00A5"_s), "!");
    EXPECT_EQ(encoded(western(), u"\uFF21"_s), "!");
}

struct BytesFromElsewhere
{
    const char *what;
    QByteArray bytes;
    int preferred;
    int taken;
};

class PageOfBytes : public testing::TestWithParam<BytesFromElsewhere>
{
};

TEST_P(PageOfBytes, isGuessedOnlyWhereThePreferredOneDoesNotFit)
{
    const auto &[what, bytes, preferred, taken] = GetParam();
    EXPECT_EQ(pageOfBytes(bytes, AnsiCodePage::page(preferred)).number(), taken);
}

INSTANTIATE_TEST_SUITE_P(Bytes, PageOfBytes,
    testing::ValuesIn(std::vector<BytesFromElsewhere>{
        {"ascii", "plain", 1252, 1252},
        {"nothing", "", 1252, 1252},
        {"western", "caf\xE9 \x80", 1252, 1252},
        {"japaneseThatFitsWestern", "\x93\x8A", 1252, 1252},
        {"japanese", "\x93\x8A\x83\x81\x81\x5B", 1252, 932},
        {"japaneseAndKana", "\x81\x40\xB1\xB2", 1252, 932},
        {"neither", "\x81\x40\x81 ", 1252, 1252},
        {"pairThatComesBackAsAnother", "\x81\x40\x87\x90", 1252, 1252},
        {"pairCutInHalf", "\x81\x40\x81", 1252, 1252},
        {"noPairs", "\xB1\x81", 1252, 1252},
        {"westernOnAJapaneseDesktop", "caf\xE9", 932, 932},
        {"japaneseAtHome", "\x81\x40", 932, 932},
    }),
    [](const auto &tested) { return tested.param.what; });

TEST(CodePage, countsTheBytesThatItCouldNotDecode)
{
    EXPECT_EQ(undecodedBytes(japanese().decode("\x81 \x85@ab")), 2);
    EXPECT_EQ(undecodedBytes(u"ab漢"_s), 0);
}

TEST(CodePage, knowsHowManyBytesATextTakes)
{
    EXPECT_EQ(japanese().byteLength(u"abc"), 3);
    EXPECT_EQ(japanese().byteLength(u"aｶ漢\uF780"), 5);
    EXPECT_EQ(western().byteLength(u"aé漢"), 3);
    EXPECT_EQ(western().byteLength(u""), 0);
}

TEST(CodePage, isTheOneThatIsSet)
{
    for (const int number : {932, 1252}) {
        setAnsiCodePageNumber(number);
        EXPECT_EQ(ansiCodePageNumber(), number);
        EXPECT_EQ(ansiCodePage().number(), number);
    }
    setAnsiCodePageNumber(0);
    EXPECT_EQ(AnsiCodePage::page(12).number(), 1252);
}

TEST(Ascii, isToldFromOtherBytesAtEveryPlace)
{
    for (int length = 0; length < 20; ++length) {
        QByteArray bytes(length, 'x');
        EXPECT_TRUE(isAscii(bytes));
        for (int i = 0; i < length; ++i) {
            bytes[i] = '\x80';
            EXPECT_FALSE(isAscii(bytes)) << length << ' ' << i;
            bytes[i] = 'x';
        }
    }
}

} // namespace
