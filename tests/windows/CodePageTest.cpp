#include "runtime/AnsiConverter.h"
#include "runtime/AnsiTables.h"
#include "runtime/AnsiText.h"
#include "runtime/WindowsApi.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

TEST(SystemCodePage, isTheAnsiPageAndNotUtf8)
{
    setAnsiCodePageNumber(0);
    EXPECT_EQ(ansiCodePageNumber(), int(GetACP()));
    EXPECT_FALSE(AnsiConverter::has(CP_UTF8)) << "the manifest must not make UTF-8 the process's code page";
    EXPECT_NE(GetACP(), UINT(CP_UTF8));
    EXPECT_EQ(ansiCodePage().number(), int(GetACP()));
}

namespace {

/// Some bytes of a page and their text.
struct PageSample
{
    int page;
    QByteArray bytes;
    QString text;
};

class PagesOfWindows : public testing::TestWithParam<PageSample>
{
};

} // namespace

// Each page of a Windows that is neither Japanese nor Western.
TEST_P(PagesOfWindows, areConvertedByTheSystem)
{
    const auto &[page, bytes, text] = GetParam();
    ASSERT_TRUE(AnsiConverter::has(page));
    const AnsiTables table(page);
    ASSERT_EQ(bytes.size() % text.size(), 0);
    const qsizetype width = bytes.size() / text.size();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto first = static_cast<uchar>(bytes[i * width]);
        const auto second = static_cast<uchar>(bytes[i * width + width - 1]);
        const char16_t character = width == 1 ? table.single(first) : table.pair(first, second);
        EXPECT_EQ(character, text[i].unicode()) << i;
        EXPECT_EQ(table.code(character), width == 1 ? first : first * 256 + second) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, PagesOfWindows,
    testing::ValuesIn(std::vector<PageSample>{
        {1250, "\xE8\xF8\xB9", u"čřą"_s},
        {1251, "\xCF\xF0\xE8", u"При"_s},
        {1253, "\xE1\xE2", u"αβ"_s},
        {936, "\xD6\xD0\xCE\xC4", u"中文"_s},
        {949, "\xC7\xD1\xB1\xDB", u"한글"_s},
        {950, "\xA4\xA4\xA4\xE5", u"中文"_s},
        {932, "\x8A\xBF\x8E\x9A", u"漢字"_s},
    }),
    [](const auto &tested) { return "page" + std::to_string(tested.param.page); });

// Windows has a character for each of them, which no program has ever written.
TEST(CodePage932OnWindows, refusesWhatOtherSystemsRefuse)
{
    const AnsiTables table(932);
    for (const int byte : {0x80, 0xA0, 0xFD, 0xFE, 0xFF}) {
        EXPECT_EQ(table.single(uchar(byte)), u'\0') << std::hex << byte;
    }
    EXPECT_EQ(AnsiCodePage::page(932).decode("\x80\xA0\xFF"), u"\uF780\uF7A0\uF7FF"_s);
}
