#include "check/FileCheck.h"

#include "check/CheckTexts.h"
#include "check/ReadBackFindings.h"
#include "runtime/AnsiText.h"
#include "tests/check/CheckedFiles.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

using enum CheckId;

constexpr int rowOfFile = 0;

/// A file that has the finding, at that place, and one that just has not.
struct CheckCase
{
    CheckId id;
    int row;
    int column;
    QByteArray with;
    QByteArray without;
    QString fileName = u"xt.inv"_s;
    int page = 1252;
};

const QByteArray plain = "5,3,1,1,0,30"; // factory setting, function code, range check, one range

QByteArray one(const QByteArray &rest, const QByteArray &conditions = {})
{
    return TestFile{testRow("79", rest, conditions)}.bytes();
}

/// A row 160 of the values 0 to 7, and a row 170 with these conditions.
QByteArray two(const QByteArray &conditions)
{
    return TestFile{testRow("160", "5,3,1,1,0,7") + testRow("170", plain, conditions), 2}.bytes();
}

QByteArray replaced(QByteArray bytes, const QByteArray &before, const QByteArray &after)
{
    EXPECT_TRUE(bytes.contains(before)) << before.constData();
    return bytes.replace(before, after);
}

QByteArray named(const QByteArray &name)
{
    return replaced(one(plain), "Name 79", name);
}

QByteArray machine(const QByteArray &lines)
{
    return TestFile{testRow("79", plain), 1, lines}.bytes();
}

QByteArray modelName(const QByteArray &name)
{
    return TestFile{testRow("79", plain), 1, {}, name}.bytes();
}

QByteArray rows(int count, int announced)
{
    QByteArray bytes;
    for (int i = 1; i <= count; ++i) {
        bytes += testRow(QByteArray::number(i), plain);
    }
    return TestFile{bytes, announced}.bytes();
}

QByteArray numbers(const QByteArray &first, const QByteArray &second)
{
    return TestFile{testRow(first, plain) + testRow(second, plain), 2}.bytes();
}

QByteArray helpIds(const QByteArray &name)
{
    return replaced(replaced(numbers("1", "2"), "102,Name 2", "101," + name), "101,Name 1", "101,Same");
}

QList<CheckCase> readingCases()
{
    return {
        {NoParameterSection, rowOfFile, 0, replaced(rows(1, 1), "[Paramater]", "[paramater]"), rows(1, 1)},
        {CountNotANumber, rowOfFile, 0, replaced(rows(1, 1), "Paramater=1", "Paramater=many"), rows(1, 1)},
        {NegativeCount, rowOfFile, 0, replaced(rows(1, 1), "Paramater=1", "Paramater=-1"), rows(1, 1)},
        {NegativeCount, 1, 0, replaced(one(plain), ",1,0,30", ",-1,0,30"), one(plain)},
        {NumberTooLarge, 1, 0, replaced(one(plain), ",1,0,30", ",99999,0,30"), one(plain)},
        {FileEndsInRow, 2, 0, rows(2, 2).chopped(20), rows(2, 2)},
        {FileEndsInRow, 2, 0, rows(1, 2) + "\r\n", rows(2, 2)},
        {TooManyRows, 3, 0, rows(3, 1), rows(2, 1)},
        {RowsMissing, rowOfFile, 0, rows(2, 3), rows(3, 3)},
        {RowBeyondCount, 3, 0, rows(3, 2), rows(3, 3)},
        {LastFieldOpen, 1, 0, rows(1, 1).chopped(2), rows(1, 1)},
        {NoModelName, rowOfFile, 0, TestFile{{}, 0, {}, ""}.bytes() + "0,1,11,Name,,1,-1,-1,0,0,0,0,", modelName("X")},
    };
}

QList<CheckCase> savingCases()
{
    const QByteArray letters(130, 'x');
    return {
        {CommaInText, 1, 2, named("\"a,b\""), named("ab")},
        {LineEndInText, 1, 2, named("\"a\nb\""), named("a b")},
        {EdgeSpaces, 1, 2, named("\" a\""), named(" a")},
        {EnclosingQuotes, rowOfFile, 0, modelName("\"'XT'\""), modelName("'X'T")},
        {BytesOutsidePage, 1, 2, named("a\xFF"), named("a\xB1"), u"xt.inv"_s, 932},
        {BytesOutsidePage, rowOfFile, 0, modelName("a\xFF"), modelName("a\xB1"), u"xt.inv"_s, 932},
        {ValueCut, rowOfFile, 0, modelName(letters.first(128)), modelName(letters.first(127))},
        {EmptyEntry, rowOfFile, 0, machine("Option0=\" \"\r\n"), machine("Option0=A\r\n")},
        {CurrentMissing, rowOfFile, 0, machine("Capacity0=1\r\n"), machine("Capacity0=1\r\nICapacity0=2\r\n")},
        {BoundDigits, 1, 3, one("5,3,1,1,0,12345.678"), one("5,3,1,1,0,12345.67")},
        {BoundDigits, 1, 3, one("5,3,1,1,0.00001,30"), one("5,3,1,1,0.0001,30")},
        {BoundsReversed, 1, 3, one("5,3,1,1,40,10"), one("40,3,1,1,40,0")},
        {RangeChanged, 1, 3, one("5,3,1,1,-10,10"), one("5,3,1,1,0,10")},
        {ConditionsChanged, 1, 13, one(plain, "X,0,1"), one(plain, "OP,0,1")},
        {ValueChanged, 1, 9, one("many,3,1,1,0,30"), one("05,3,1,1,0,30")},
        {ValueChanged, 1, 5, replaced(one(plain), ",0.1,", ",0.5,"), one(plain)},
        {ValueChanged, 1, 11, one("5,99999,1,1,0,30"), one("5,00003,1,1,0,30")},
        {LineDropped, rowOfFile, 0, machine("; comment\r\n"), machine("")},
        {LineDropped, rowOfFile, 0, machine("Capacity1=2\r\n"), machine("")},
        {LineDropped, rowOfFile, 0, machine("Code=36\r\n"), machine("")},
        {SpelledOtherwise, 1, 9, one("05,3,1,1,0,30"), one("5,3,1,1,0,30")},
        {SpelledOtherwise, 1, 2, named("\"a\""), named("a")},
        {SpelledOtherwise, 1, 3, one("5,3,1,2,0,10,20,030", "OP,0,A"), one("5,3,1,2,0,10,20,30", "OP,0,A")},
        {SpelledOtherwise, 1, 13, one("5,3,1,2,0,10,20,30", "OP,00,A"), one("5,3,1,2,0,10,20,30", "OP,0,A")},
        {SpelledOtherwise, rowOfFile, 0, replaced(one(plain), "Code=35", "code = 35"), one(plain)},
        {LayoutDiffers, rowOfFile, 0, one(plain).replace("\r\n", "\n"), one(plain)},
    };
}

QList<CheckCase> contentCases()
{
    return {
        {NumberEmpty, 1, 1, TestFile{testRow("", plain)}.bytes(), one(plain)},
        {NumberTwice, 2, 1, numbers("79", "079"), numbers("79", "80")},
        {NumberOrder, 2, 1, numbers("80", "79"), numbers("9", "80")},
        {RangesOverlap, 1, 3, one("5,3,1,2,0,10,10,20"), one("5,3,1,2,0,10,11,20")},
        {FactoryOutsideRanges, 1, 9, one("30.1,3,1,1,0,30"), one("30,3,1,1,0,30")},
        {FactoryOutsideRanges, 1, 9, one("4,3,1,1,5,-1"), one("5000,3,1,1,5,-1")},
        {FactoryBetweenSteps, 1, 9, one("5.55,3,1,1,0,30"), one("5.5,3,1,1,0,30")},
        {RangeCheckWithoutRange, 1, 4, one("5,3,1,0", "OP,0,A"), one("5,3,0,0", "OP,0,A")},
        {ConditionOnMissing, 2, 13, two("161,0,1"), two("160,0,1")},
        {ConditionOnItself, 2, 13, two("170,0,1"), two("160,0,1")},
        {ConditionOutsideRange, 2, 13, two("160,0,8"), two("160,0,7")},
        {ConditionOutsideRange, 2, 13, two("160,2,1,9"), two("160,2,1,7")},
        {ConditionAlways, 2, 13, two("160,2,0,7"), two("160,2,0,6")},
        {ConditionAlways, 2, 13, two("160,1,8"), two("160,1,7")},
        {ConditionAlways, 2, 13, two("160,0,1;160,1,1"), two("160,0,1;160,1,2")},
        {ConditionNever, 2, 13, two("160,3,0,7"), two("160,3,0,6")},
        {ConditionNever, 2, 13, two("MODE,0,8"), two("MODE,0,7")},
        {UnknownFunctionBits, 1, 11, one("5,4096,1,1,0,30"), one("5,2048,1,1,0,30")},
        {UnknownFunctionBits, 1, 11, one("5,256,1,1,0,30"), one("5,4096,1,1,0,30"), u"kqm3.inv"_s},
        {CapacityOrder, rowOfFile, 0, machine("Capacity0=2\r\nICapacity0=1\r\nCapacity1=1\r\nICapacity1=2\r\n"),
            machine("Capacity0=9\r\nICapacity0=1\r\nCapacity1=10\r\nICapacity1=2\r\n")},
        {CapacityTwice, rowOfFile, 0, machine("Capacity0=2\r\nICapacity0=1\r\nCapacity1=2.0\r\nICapacity1=2\r\n"),
            machine("Capacity0=2\r\nICapacity0=1\r\nCapacity1=2.1\r\nICapacity1=2\r\n")},
        {NameTooLong, 1, 2, named(QByteArray(26, 'x')), named(QByteArray(25, 'x'))},
        {NameTooLong, 1, 2, named(QByteArray("\x8A\xBF").repeated(13)), named(QByteArray("\x8A\xBF").repeated(12)),
            u"xt.inv"_s, 932},
        {ValueTooLongToPrint, rowOfFile, 0, modelName(QByteArray(21, 'x')), modelName(QByteArray(20, 'x'))},
        {HelpIdShared, 2, 10, helpIds("Other"), helpIds("Same")},
    };
}

QList<CheckCase> allCases()
{
    return readingCases() + savingCases() + contentCases();
}

Findings check(const QByteArray &bytes, const CheckCase &tested)
{
    return checkFile(bytes, AnsiCodePage::page(tested.page), tested.fileName);
}

/// Documents that come from elsewhere can have what no file can.
QList<CheckId> foundInDocument(const Document &document)
{
    return idsOf(checkReadBack(document));
}

Document documentNamed(const QString &name)
{
    Document document;
    document.machine.Name = u"XT"_s;
    document.rows.resize(1);
    document.rows[0].name = name;
    document.codePage = 932;
    return document;
}

TEST(FileCheck, findsWhatOneFileHasAndAnotherJustHasNot)
{
    for (const CheckCase &tested : allCases()) {
        const QByteArray name(checkInfo(tested.id).name.data());
        const Findings with = check(tested.with, tested);
        const auto found = std::ranges::find(with, tested.id, &Finding::id);
        ASSERT_NE(found, with.end()) << name.constData() << " is not in:\n" << namesOf(with).constData();
        EXPECT_EQ(found->place.row, tested.row) << name.constData();
        EXPECT_EQ(found->place.column, tested.column) << name.constData();
        const Findings without = check(tested.without, tested);
        EXPECT_FALSE(idsOf(without).contains(tested.id)) << namesOf(without).constData();
    }
}

TEST(FileCheck, findsInDocumentsWhatNoFileCanHave)
{
    EXPECT_EQ(foundInDocument(documentNamed(u"\"a"_s)), QList{LeadingQuote});
    EXPECT_EQ(foundInDocument(documentNamed(u"a\""_s)), QList<CheckId>());
    EXPECT_TRUE(foundInDocument(documentNamed(u"\uF781@"_s)).contains(OtherCharacter));
    EXPECT_FALSE(foundInDocument(documentNamed(u"\uF781!"_s)).contains(OtherCharacter));
    EXPECT_EQ(foundInDocument(documentNamed(u"\u00E9"_s)), QList{CharacterOutsidePage});
    EXPECT_EQ(foundInDocument(documentNamed(u"e"_s)), QList<CheckId>());
    Document document = documentNamed({});
    document.machine.ICapacity = {u"1"_s};
    EXPECT_EQ(foundInDocument(document), QList{CapacityMissing});
    document.machine.Capacity = {u"1"_s};
    EXPECT_EQ(foundInDocument(document), QList<CheckId>());
}

TEST(FileCheck, testsEveryCheck)
{
    QSet<CheckId> tested = {LeadingQuote, OtherCharacter, CharacterOutsidePage, CapacityMissing};
    for (const CheckCase &checkCase : allCases()) {
        tested.insert(checkCase.id);
    }
    for (const CheckInfo &info : checkInfos()) {
        EXPECT_TRUE(tested.contains(info.id)) << info.name.data();
    }
}

/// The placeholders after the name and the caption that a message has.
int placeholders(QStringView message)
{
    int count = 0;
    while (message.contains(u'%' + QString::number(count + 3))) {
        ++count;
    }
    return count;
}

TEST(FileCheck, saysWhatItFoundInFull)
{
    for (const CheckCase &tested : allCases()) {
        for (const Finding &finding : check(tested.with, tested)) {
            const QByteArray name(checkInfo(finding.id).name.data());
            for (const auto language : {CheckLanguage::English, CheckLanguage::Japanese}) {
                EXPECT_LE(placeholders(checkText(finding.id, language).message), finding.arguments.size())
                    << name.constData();
            }
        }
    }
}

TEST(FileCheck, hasEveryTextInBothLanguages)
{
    for (const auto language : {CheckLanguage::English, CheckLanguage::Japanese}) {
        ASSERT_EQ(checkTexts(language).size(), checkInfos().size());
        for (std::size_t i = 0; i < checkInfos().size(); ++i) {
            const CheckText &text = checkTexts(language)[i];
            EXPECT_EQ(text.id, checkInfos()[i].id) << checkInfos()[i].name.data();
            EXPECT_FALSE(
                text.message.isEmpty() || text.explanation.isEmpty() || text.example.isEmpty() || text.remedy.isEmpty())
                << checkInfos()[i].name.data();
        }
    }
    for (const CheckInfo &info : checkInfos()) {
        EXPECT_EQ(checkNamed(QString(info.name)), info.id);
        EXPECT_EQ(placeholders(checkText(info.id, CheckLanguage::English).message),
            placeholders(checkText(info.id, CheckLanguage::Japanese).message))
            << info.name.data();
    }
}

} // namespace
