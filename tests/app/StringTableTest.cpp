#include "resources/StringTable.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The identifiers that windows ask for, as first and last of each run.
constexpr std::pair<int, int> identifierRuns[] = {
    {1, 4},
    {7, 16},
    {20, 34},
    {40, 42},
    {45, 47},
    {50, 52},
    {60, 68},
    {70, 71},
    {80, 80},
    {83, 84},
    {100, 114},
    {119, 126},
    {128, 129},
    {140, 154},
    {160, 161},
    {170, 172},
    {180, 182},
    {190, 208},
    {210, 210},
    {220, 226},
    {230, 237},
    {242, 256},
};

std::set<int> expectedIdentifiers()
{
    std::set<int> identifiers;
    for (const auto &[first, last] : identifierRuns) {
        for (int id = first; id <= last; ++id) {
            identifiers.insert(id);
        }
    }
    return identifiers;
}

/// The access key of a caption: the character after its ampersand; NUL if it has none.
QChar accessKey(QStringView caption)
{
    const qsizetype at = caption.indexOf(u'&');
    return at >= 0 && at + 1 < caption.size() ? caption[at + 1].toUpper() : QChar();
}

} // namespace

TEST(StringTable, holdsExactlyTheIdentifiersInBothLanguages)
{
    std::set<int> english;
    std::set<int> japanese;
    for (const InterfaceText &text : interfaceTexts()) {
        if (!text.english.isEmpty()) {
            english.insert(text.id);
        }
        if (!text.japanese.isEmpty()) {
            japanese.insert(text.id);
        }
    }
    EXPECT_EQ(interfaceTexts().size(), 150U);
    EXPECT_EQ(english, expectedIdentifiers());
    EXPECT_EQ(japanese, expectedIdentifiers());
}

TEST(StringTable, hasNoTextForOtherIdentifiers)
{
    const std::set<int> identifiers = expectedIdentifiers();
    for (int id = -1; id <= 300; ++id) {
        EXPECT_EQ(interfaceText(id) != nullptr, identifiers.contains(id)) << id;
    }
}

TEST(StringTable, captionsHaveOneAccessKeyAtMost)
{
    for (const InterfaceText &text : interfaceTexts()) {
        EXPECT_LE(text.english.count(u'&'), 1) << text.id;
        EXPECT_LE(text.japanese.count(u'&'), 1) << text.id;
    }
}

TEST(StringTable, accessKeysAreTheSameInBothLanguages)
{
    std::set<int> different;
    for (const InterfaceText &text : interfaceTexts()) {
        if (accessKey(text.english) != accessKey(text.japanese)) {
            different.insert(text.id);
        }
    }
    EXPECT_EQ(different, (std::set<int>{}));
}

TEST(StringTable, onlyTheChangedFilePromptHasAPlaceholder)
{
    for (const InterfaceText &text : interfaceTexts()) {
        const bool hasPlaceholder = text.english.contains(u"|1"_s) || text.japanese.contains(u"|1"_s);
        EXPECT_EQ(hasPlaceholder, text.id == 210) << text.id;
    }
}

namespace {

struct TextCase
{
    int id;
    QString english;
    QString japanese;
};

class OddText : public testing::TestWithParam<TextCase>
{
};

} // namespace

// Spelled by code points where a "correction" would be easy to overlook.
TEST_P(OddText, isAsUsersKnowIt)
{
    const InterfaceText *text = interfaceText(GetParam().id);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->english.toString(), GetParam().english);
    EXPECT_EQ(text->japanese.toString(), GetParam().japanese);
}

INSTANTIATE_TEST_SUITE_P(Texts, OddText,
    testing::ValuesIn(std::vector<TextCase>{
        {2, u"CANCEL"_s, u"\uff77\uff6c\uff9d\uff7e\uff99"_s},
        {8, u"Parameter File Editer"_s, u"\uff8a\uff9f\uff97\uff92\uff70\uff80\uff8c\uff67\uff72\uff99\u7de8\u96c6"_s},
        {9, u"Tabrix"_s, u"Tabrix"_s},
        {50, u"File open"_s, u"\u30d5\u30a1\u30a4\u30eb\u3092\u958b\u304d\u307e\u3059"_s},
        {71, u"Parameter Count:"_s, u"\uff8a\uff9f\uff97\uff92\uff70\uff80\u6570 :"_s},
        {83, u"Abailable Memory:"_s, u"\u4f7f\u7528\u53ef\u80fd\u30e1\u30e2\u30ea:"_s},
        {114, u"It is different the selection range."_s,
            u"\u9078\u629e\u7bc4\u56f2\u304c\u9055\u3044\u307e\u3059\u3002"_s},
        {119, u"Machine Infomation"_s, u"\u6a5f\u7a2e\u60c5\u5831\u7de8\u96c6"_s},
        {126, u"&Pulg_in Option:"_s, u"\u5185\u8535\uff75\uff8c\uff9f\uff7c\uff6e\uff9d(&P):"_s},
        {160, u"All files(*.*)|*.*|Parameter files(*.inv;*.ine)|*.inv;*.ine"_s,
            u"\u5168\u3066\u306e\uff8c\uff67\uff72\uff99(*.*)|*.*|"
            u"\uff8a\uff9f\uff97\uff92\uff70\uff80\uff8c\uff67\uff72\uff99(*.inv;*.ine)|*.inv;*.ine"_s},
        {190, u"Printer devise:"_s, u"\u4f7f\u7528\u3059\u308b\uff8c\uff9f\uff98\uff9d\uff80:"_s},
        {201, u"Stop Printintg..."_s,
            u"\u5370\u5237\u3092\u3084\u3081\u308b\u3068\u304d\u306f\u3001\u3008Cancel\u3009"
            u"\u30dc\u30bf\u30f3\u3092\u30af\u30ea\u30c3\u30af\u3057\u3066\u304f\u3060\u3055\u3044\u3002"_s},
        {210, u"|1 is update.\nSave?"_s,
            u"|1 \u306f\u7de8\u96c6\u3055\u308c\u3066\u3044\u307e\u3059\u3002\n "
            u"\u5909\u66f4\u3092\u4fdd\u5b58\u3057\u307e\u3059\u304b\uff1f"_s},
        {250, u" "_s, u" "_s},
        {256, u"Positio&n control"_s, u"\u4f4d\u7f6e\u5236\u5fa1(&N)"_s},
    }));

namespace {

/// The placeholders of a text, sorted.
std::multiset<QString> placeholders(QStringView text)
{
    std::multiset<QString> found;
    for (qsizetype at = text.indexOf(u'%'); at >= 0; at = text.indexOf(u'%', at + 1)) {
        found.insert(text.mid(at, 2).toString());
    }
    return found;
}

/// The interface in Japanese, for as long as this object lives.
class InJapanese
{
public:
    InJapanese() { LanguageBase = JapaneseBase; }
    ~InJapanese() { LanguageBase = EnglishBase; }
    Q_DISABLE_COPY_MOVE(InJapanese)
};

} // namespace

TEST(OwnTexts, areInTheOrderOfTheirIdentifiersInBothLanguages)
{
    int position = 0;
    for (const OwnTextEntry &entry : ownTextEntries()) {
        EXPECT_EQ(int(entry.id), position++);
        EXPECT_FALSE(entry.english.isEmpty()) << position;
        EXPECT_FALSE(entry.japanese.isEmpty()) << position;
        EXPECT_EQ(placeholders(entry.english), placeholders(entry.japanese)) << position;
    }
}

TEST(OwnTexts, areWordedInTheLanguageChosen)
{
    EXPECT_EQ(ownText(OwnText::TypeMismatch), u"Type mismatch"_s);
    const InJapanese japanese;
    EXPECT_EQ(ownText(OwnText::TypeMismatch), u"\u578b\u304c\u4e00\u81f4\u3057\u307e\u305b\u3093\u3002"_s);
}

TEST(OwnTexts, canBeCaptionsAsThoseOfTheTable)
{
    EXPECT_EQ(captionText(Text::HeadingUnit), u"Unit"_s);
    EXPECT_EQ(captionText(OwnText::TypeMismatch), u"Type mismatch"_s);
}

TEST(OwnTexts, showTheirArgumentsAsTheyAre)
{
    EXPECT_EQ(ownText(OwnText::SaveWithoutVersion, {u"/a%2b"_s, u"100%1"_s}),
        u"The earlier version could not be kept in /a%2b: 100%1\n"
        "If you save now, it is lost. Save all the same?"_s);
    EXPECT_EQ(ownText(OwnText::SystemReason), u"%1"_s);
}
