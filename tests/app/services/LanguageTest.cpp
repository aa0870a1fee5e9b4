#include "app/services/Language.h"

#include "runtime/Country.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <optional>
#include <ostream>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int japan = 81;
constexpr int elsewhere = 1;

/// A program folder of its own, without any set-up INI file, and the country and language put back afterwards.
class ProgramFolder
{
public:
    ProgramFolder() { setProgramFolder(m_folder.path()); }
    ~ProgramFolder()
    {
        setProgramFolder({});
        setCountryCode(0);
        LanguageBase = EnglishBase;
    }
    Q_DISABLE_COPY_MOVE(ProgramFolder)

    QString path() const { return m_folder.path(); }

    void write(const QString &fileName, const QByteArray &bytes) const
    {
        const QString path = m_folder.filePath(fileName);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(bytes);
    }

private:
    QTemporaryDir m_folder;
};

const auto japaneseIni = u"files/jp/KORVELIN.INI"_s;
const auto englishIni = u"files/us/korvelin_e.ini"_s;

QByteArray iniNaming(const QByteArray &language)
{
    return "[Setup]\r\nVersion=2\r\nLanguage=" + language + "\r\n";
}

struct LanguageCase
{
    const char *name;
    int country;
    std::optional<QByteArray> inJapaneseIni; ///< the Language value; std::nullopt: there is no file
    std::optional<QByteArray> inEnglishIni;
    qint32 chosen;
};

std::ostream &operator<<(std::ostream &out, const LanguageCase &languageCase)
{
    return out << languageCase.name;
}

class LanguageChoice : public testing::TestWithParam<LanguageCase>
{
protected:
    ProgramFolder folder;
};

} // namespace

TEST_P(LanguageChoice, followsTheSetUpFileElseTheCountry)
{
    const LanguageCase &given = GetParam();
    setCountryCode(given.country);
    if (given.inJapaneseIni) {
        folder.write(japaneseIni, iniNaming(*given.inJapaneseIni));
    }
    if (given.inEnglishIni) {
        folder.write(englishIni, iniNaming(*given.inEnglishIni));
    }
    LanguageBase = 0;
    SelectLanguage();
    EXPECT_EQ(LanguageBase, given.chosen);
}

INSTANTIATE_TEST_SUITE_P(Cases, LanguageChoice,
    testing::ValuesIn(std::vector<LanguageCase>{
        {"JapanWithoutFiles", japan, {}, {}, JapaneseBase},
        {"ElsewhereWithoutFiles", elsewhere, {}, {}, EnglishBase},
        {"JapanItsFileSaysEnglish", japan, "English", {}, EnglishBase},
        {"JapanItsFileGoesBeforeTheEnglishOne", japan, "Japanese", "English", JapaneseBase},
        {"JapanFallsBackToTheEnglishFile", japan, {}, "English", EnglishBase},
        {"JapanEnglishFileSaysJapanese", japan, {}, "Japanese", JapaneseBase},
        {"JapanEnglishFileSaysNothing", japan, {}, "", JapaneseBase},
        {"JapanUnusableFileDoesNotFallBack", japan, "", "English", JapaneseBase},
        {"ElsewhereFileSaysJapanese", elsewhere, {}, "Japanese", JapaneseBase},
        {"ElsewhereNeverReadsTheJapaneseFile", elsewhere, "Japanese", {}, EnglishBase},
        {"LowerCaseIsUnknownElsewhere", elsewhere, {}, "japanese", EnglishBase},
        {"LowerCaseIsUnknownInJapan", japan, "english", {}, JapaneseBase},
        {"AnotherWordIsUnknown", elsewhere, {}, "German", EnglishBase},
        {"EmptyValueIsUnknown", elsewhere, {}, "", EnglishBase},
        {"TheMarkOfAMissingKeyIsUnknown", japan, "GetPrivateProfieReadError", {}, JapaneseBase},
    }),
    [](const auto &given) { return given.param.name; });

TEST(Language, aFolderInTheSetUpFilesPlaceIsNoFile)
{
    const ProgramFolder folder;
    setCountryCode(japan);
    QDir(folder.path()).mkpath(japaneseIni);
    folder.write(englishIni, iniNaming("English"));
    SelectLanguage();
    EXPECT_EQ(LanguageBase, EnglishBase);
}

TEST(Language, setUpFilesLieBelowTheProgramFolder)
{
    setProgramFolder(u"/opt/tabrix"_s);
    EXPECT_EQ(QDir::fromNativeSeparators(setupIniPath(JapaneseBase)), u"/opt/tabrix/files/jp/KORVELIN.INI"_s);
    EXPECT_EQ(QDir::fromNativeSeparators(setupIniPath(EnglishBase)), u"/opt/tabrix/files/us/korvelin_e.ini"_s);
    setProgramFolder({});
}

TEST(Language, helpFileLiesInTheProgramFolder)
{
    setProgramFolder(u"/opt/tabrix"_s);
    const QString separator(QDir::separator());
    EXPECT_EQ(helpFileOf(JapaneseBase), u"/opt/tabrix"_s + separator + u"TABRIX.HLP"_s);
    EXPECT_EQ(helpFileOf(EnglishBase), u"/opt/tabrix"_s + separator + u"TABRIXE.HLP"_s);
    setProgramFolder(u"/opt/tabrix"_s + separator);
    EXPECT_EQ(helpFileOf(EnglishBase), u"/opt/tabrix"_s + separator + u"TABRIXE.HLP"_s);
    setProgramFolder({});
}

TEST(JoinPath, putsOneSeparatorBetweenFolderAndFile)
{
    const QString separator(QDir::separator());
    EXPECT_EQ(JoinPath(u"a"_s, u"b.ini"_s), u"a"_s + separator + u"b.ini"_s);
    EXPECT_EQ(JoinPath(u"a"_s + separator, u"b.ini"_s), u"a"_s + separator + u"b.ini"_s);
    EXPECT_EQ(JoinPath({}, u"b.ini"_s), separator + u"b.ini"_s);
}

namespace {

struct SearchCase
{
    QString text;
    QString searched;
    int start;
    int compareMode;
    int position;
};

class Search : public testing::TestWithParam<SearchCase>
{
};

} // namespace

TEST_P(Search, givesThePositionFromOne)
{
    const SearchCase &given = GetParam();
    EXPECT_EQ(InStrNoCase(given.text, given.searched, given.start, given.compareMode), given.position);
}

INSTANTIATE_TEST_SUITE_P(Cases, Search,
    testing::ValuesIn(std::vector<SearchCase>{
        {u"abcABC"_s, u"B"_s, 1, 1, 2},
        {u"abcABC"_s, u"B"_s, 1, 0, 5},
        {u"abcABC"_s, u"b"_s, 3, 1, 5},
        {u"abcABC"_s, u"b"_s, 3, 0, 0},
        {u"abc"_s, u"x"_s, 1, 1, 0},
        {u"abc"_s, u"abcd"_s, 1, 1, 0},
        {u"abc"_s, u"c"_s, 3, 1, 3},
        {u"abc"_s, u"a"_s, 4, 1, 0},
        {u"abc"_s, u"a"_s, 0, 1, 0},
        {u"abc"_s, u""_s, 2, 1, 2},
        {u""_s, u"a"_s, 1, 1, 0},
        {u""_s, u""_s, 1, 1, 0},
        {u"\u00c4\uff71"_s, u"\u00e4"_s, 1, 1, 1},
        {u"\uff71\u30a2"_s, u"\u30a2"_s, 1, 1, 2},
    }));

TEST(InStrNoCase, regardsNoCaseUnlessAsked)
{
    EXPECT_EQ(InStrNoCase(u"KQM3-01"_s, u"kqm3"_s), 1);
}

namespace {

class TextOf : public testing::Test
{
protected:
    TextOf() { LanguageBase = EnglishBase; }
    ~TextOf() override { LanguageBase = EnglishBase; }
};

} // namespace

TEST_F(TextOf, anIdentifierFollowsTheLanguage)
{
    EXPECT_EQ(ResString(Text::Untitled), u"No Name"_s);
    LanguageBase = JapaneseBase;
    EXPECT_EQ(ResString(Text::Untitled), u"\u7121\u984c"_s);
}

TEST_F(TextOf, theChangedFilePromptNamesTheFile)
{
    EXPECT_EQ(ResString(Text::SaveChangesQuestion, {u"|1"_s, u"a.inv"_s}), u"a.inv is update.\nSave?"_s);
    EXPECT_EQ(ResString(Text::SaveChangesQuestion, {{u"|1"_s, u"a.inv"_s}}), u"a.inv is update.\nSave?"_s);
}

TEST_F(TextOf, aPlaceholderIsFoundWithoutRegardToCaseAndEverywhere)
{
    EXPECT_EQ(ResString(Text::SaveChangesQuestion, {u"S"_s, u"z"_s}), u"|1 iz update.\nzave?"_s);
}

TEST_F(TextOf, aValueThatHoldsItsPlaceholderIsLeftAlone)
{
    EXPECT_EQ(ResString(Text::SaveChangesQuestion, {u"|1"_s, u"|1|1.inv"_s}), u"|1|1.inv is update.\nSave?"_s);
}

TEST_F(TextOf, aValueMayBeEmpty)
{
    EXPECT_EQ(ResString(Text::SaveChangesQuestion, {u"|1"_s, u""_s}), u" is update.\nSave?"_s);
}

TEST_F(TextOf, laterPairsSeeWhatEarlierOnesInserted)
{
    EXPECT_EQ(
        ResString(Text::SaveChangesQuestion, {u"|1"_s, u"|2"_s, u"|2"_s, u"b.inv"_s}), u"b.inv is update.\nSave?"_s);
}

TEST_F(TextOf, aLastPlaceholderWithoutValueTakesTheValueBefore)
{
    EXPECT_EQ(ResString(Text::SaveChangesQuestion, {u"|1"_s}), u" is update.\nSave?"_s);
    EXPECT_EQ(ResString(Text::SaveChangesQuestion, {u"|1"_s, u"a"_s, u"Save"_s}), u"a is update.\na?"_s);
}

TEST_F(TextOf, anEmptyPlaceholderReplacesNothing)
{
    EXPECT_EQ(ResString(Text::SaveChangesQuestion, {u""_s, u"a"_s}), u"|1 is update.\nSave?"_s);
}
