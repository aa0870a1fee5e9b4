#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "dialogs/print/MachineInfoLines.h"
#include "dialogs/print/MachineInfoPrinter.h"
#include "print/PrintJob.h"
#include "tests/support/PdfText.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QPrinter>
#include <QTemporaryDir>

#include <ostream>

using namespace Qt::StringLiterals;

static void PrintTo(const MachineInfoLine &line, std::ostream *out)
{
    *out << '[' << line.first.toStdString() << '|' << line.second.toStdString() << ']';
}

namespace {

MachineInfo exampleInfo()
{
    MachineInfo info;
    info.Name = u"XT200"_s;
    info.TypeCode = u"T1"_s;
    info.VCapacity = u"V2"_s;
    info.Code = u"M3"_s;
    info.Capacity = {u"0.4"_s, u"0.75"_s};
    info.ICapacity = {u"2.5"_s, u"4.1"_s};
    info.Option = {u"OPT-A"_s, u"OPT-B"_s};
    info.Paramater = 345;
    return info;
}

class MachineInfoText : public testing::Test
{
protected:
    MachineInfoText() { LanguageBase = EnglishBase; }
    ~MachineInfoText() override { LanguageBase = EnglishBase; }
};

TEST_F(MachineInfoText, isInTheGivenOrder)
{
    const QList<MachineInfoLine> expected{
        {},
        {},
        {u"File name:"_s, u"/data/xt200.inv"_s},
        {},
        {u"[Machine infomation]"_s, {}},
        {},
        {u"Type:"_s, u"XT200"_s},
        {u"Sp. Code:"_s, u"T1"_s},
        {u"Voltage Code:"_s, u"V2"_s},
        {u"Machine Code:"_s, u"M3"_s},
        {},
        {u"VFD capacity[kW]"_s, u"Rated current[A]"_s},
        {u"0.4"_s, u"2.5"_s},
        {u"0.75"_s, u"4.1"_s},
        {},
        {u"Pulg_in Option"_s, {}},
        {u"OPT-A"_s, {}},
        {u"OPT-B"_s, {}},
        {},
        {u"Parameter Count:"_s, u"345"_s},
    };
    EXPECT_EQ(machineInfoLines(exampleInfo(), u"/data/xt200.inv"_s), expected);
}

TEST_F(MachineInfoText, isJapaneseInJapanese)
{
    LanguageBase = JapaneseBase;
    const QList<MachineInfoLine> lines = machineInfoLines(exampleInfo(), u"無題"_s);
    EXPECT_EQ(lines.at(2), (MachineInfoLine{u"ﾌｧｲﾙ名:"_s, u"無題"_s}));
    EXPECT_EQ(lines.at(4).first, u"[機種情報部]"_s);
    EXPECT_EQ(lines.at(11), (MachineInfoLine{u"適用ﾓｰﾀ容量[kW]"_s, u"定格電流[A]"_s}));
    EXPECT_EQ(lines.last(), (MachineInfoLine{u"ﾊﾟﾗﾒｰﾀ数 :"_s, u"345"_s}));
}

TEST_F(MachineInfoText, isCutAtTwentyCharactersButForTheTitle)
{
    MachineInfo info = exampleInfo();
    const QString twenty = u"12345678901234567890"_s;
    info.Name = twenty + u"x"_s;
    info.TypeCode = twenty;
    info.Capacity = {twenty + u"y"_s};
    info.ICapacity = {twenty + u"z"_s};
    info.Option = {twenty + u"w"_s};
    const QString title = twenty + twenty + u".inv"_s;
    const QList<MachineInfoLine> lines = machineInfoLines(info, title);
    EXPECT_EQ(lines.at(2).second, title);
    EXPECT_EQ(lines.at(6).second, twenty);
    EXPECT_EQ(lines.at(7).second, twenty);
    EXPECT_EQ(lines.at(12), (MachineInfoLine{twenty, twenty}));
    EXPECT_EQ(lines.at(15).first, twenty);
}

TEST_F(MachineInfoText, isNotCutInsideACharacter)
{
    MachineInfo info = exampleInfo();
    info.Name = u"1234567890123456789\U00020B9Fx"_s;
    EXPECT_EQ(machineInfoLines(info, {}).at(6).second, u"1234567890123456789"_s);
}

TEST_F(MachineInfoText, hasAnEmptyCurrentForACapacityWithoutOne)
{
    MachineInfo info = exampleInfo();
    info.Capacity << u"1.5"_s;
    EXPECT_EQ(machineInfoLines(info, {}).at(14), (MachineInfoLine{u"1.5"_s, {}}));
}

/// The page on paper.
class MachineInfoPage : public MachineInfoText
{
protected:
    MachineInfoPage()
    {
        UserFont = {};
        UserFont.FontName = u"DejaVu Sans"_s;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setOutputFileName(fileName());
    }
    ~MachineInfoPage() override { UserFont = {}; }

    QString fileName() const { return folder.filePath(u"page.pdf"_s); }

    QList<PdfPage> print(const QString &title = u"a.inv"_s)
    {
        PrintJob job(printer, title);
        EXPECT_TRUE(printMachineInfo(job, machine, title));
        EXPECT_TRUE(job.end());
        return readPdf(fileName());
    }

    QTemporaryDir folder;
    MachineInfo machine = exampleInfo();
    QPrinter printer{QPrinter::HighResolution};
};

TEST_F(MachineInfoPage, holdsEveryLineOnce)
{
    const QList<PdfPage> pages = print();
    ASSERT_EQ(pages.size(), 1);
    const QStringList expected{u"File name: a.inv"_s, u"[Machine infomation]"_s, u"Type: XT200"_s, u"Sp. Code: T1"_s,
        u"Voltage Code: V2"_s, u"Machine Code: M3"_s, u"VFD capacity[kW] Rated current[A]"_s, u"0.4 2.5"_s,
        u"0.75 4.1"_s, u"Pulg_in Option"_s, u"OPT-A"_s, u"OPT-B"_s, u"Parameter Count: 345"_s};
    EXPECT_EQ(pages.at(0).lines(), expected);
}

TEST_F(MachineInfoPage, hasEvenlySpacedLines)
{
    const PdfPage page = print().at(0);
    const double pitch = page.word(u"Sp."_s).box.top() - page.word(u"Type:"_s).box.top();
    EXPECT_GT(pitch, 8);
    const auto linesFromType = [&](const QString &word) {
        return (page.word(word).box.top() - page.word(u"Type:"_s).box.top()) / pitch;
    };
    EXPECT_NEAR(linesFromType(u"File"_s), -4, 0.01);
    EXPECT_NEAR(linesFromType(u"[Machine"_s), -2, 0.01);
    EXPECT_NEAR(linesFromType(u"VFD"_s), 5, 0.01);
    EXPECT_NEAR(linesFromType(u"OPT-B"_s), 11, 0.01);
    EXPECT_NEAR(linesFromType(u"Parameter"_s), 13, 0.01);
}

TEST_F(MachineInfoPage, beginsFieldsAtTheSamePositionWhateverTheTexts)
{
    machine.Name = u"インバータ形名全角文字"_s;
    machine.TypeCode = u"ASCII"_s;
    machine.Capacity = {u"全角全角全角全角全角全角全角全角全角全角"_s, u"iiii"_s};
    machine.ICapacity = {u"二"_s, u"WWWWWWWWWWWWWWWWWWWW"_s};
    const PdfPage page = print().at(0);
    const double first = page.word(u"Type:"_s).box.left();
    const double second = page.word(u"ASCII"_s).box.left();
    for (const QString &text :
        {u"File"_s, u"Sp."_s, u"全角全角全角全角全角全角全角全角全角全角"_s, u"iiii"_s, u"OPT-A"_s}) {
        EXPECT_NEAR(page.word(text).box.left(), first, 0.1) << text.toStdString();
    }
    for (const QString &text :
        {u"a.inv"_s, u"インバータ形名全角文字"_s, u"二"_s, u"WWWWWWWWWWWWWWWWWWWW"_s, u"Rated"_s}) {
        EXPECT_NEAR(page.word(text).box.left(), second, 0.1) << text.toStdString();
    }
    const QRectF wide = page.word(u"全角全角全角全角全角全角全角全角全角全角"_s).box;
    EXPECT_LT(wide.right(), second);
    EXPECT_LT(page.word(u"WWWWWWWWWWWWWWWWWWWW"_s).box.right(), page.size.width());
}

TEST_F(MachineInfoPage, countsPositionsInDigitsOfTheUsersFont)
{
    const PdfPage page = print().at(0);
    const double margin = page.word(u"Type:"_s).box.left();
    const double digit = page.word(u"345"_s).box.width() / 3;
    const double edge = printer.pageLayout().margins(QPageLayout::Point).left();
    EXPECT_NEAR(margin - edge, 10 * digit, 0.5);
    EXPECT_NEAR(page.word(u"XT200"_s).box.left() - margin, 20 * digit, 0.5);
}

TEST_F(MachineInfoPage, isInTheUsersFont)
{
    const double height = print().at(0).word(u"XT200"_s).box.height();
    UserFont.FontSize = 6;
    EXPECT_NEAR(print().at(0).word(u"XT200"_s).box.height(), height / 2, 0.3);
}

TEST_F(MachineInfoPage, staysOnThePaperInALargeFont)
{
    UserFont.FontSize = 72;
    machine.Code = u"WWWWWWWWWWWWWWWWWWWW"_s;
    const QList<PdfPage> pages = print();
    for (const PdfPage &page : pages) {
        for (const PdfWord &word : page.words) {
            EXPECT_LT(word.box.right(), page.size.width()) << word.text.toStdString();
        }
    }
    EXPECT_EQ(pages.at(0).count(u"WWWWWWWWWWWWWWWWWWWW"_s), 1);
}

TEST_F(MachineInfoPage, showsALongTitleWhole)
{
    const QString title = u"/"_s + QString(u"folder"_s).repeated(40) + u"/end.inv"_s;
    const PdfPage page = print(title).at(0);
    QString shown;
    for (const PdfWord &word : page.words) {
        if (word.box.left() > page.word(u"XT200"_s).box.left() - 1
            && word.box.top() < page.word(u"[Machine"_s).box.top()) {
            shown += word.text;
            EXPECT_LT(word.box.right(), page.size.width());
        }
    }
    EXPECT_EQ(shown, title);
}

TEST_F(MachineInfoPage, goesOnOnTheNextPage)
{
    machine.Capacity.clear();
    for (int i = 1; i <= 150; ++i) {
        machine.Capacity << u"cap%1"_s.arg(i);
        machine.ICapacity << u"cur%1"_s.arg(i);
    }
    const QList<PdfPage> pages = print();
    ASSERT_GE(pages.size(), 2);
    QStringList all;
    for (const PdfPage &page : pages) {
        all << page.texts();
        for (const PdfWord &word : page.words) {
            EXPECT_LT(word.box.bottom(), page.size.height());
        }
    }
    for (int i = 1; i <= 150; ++i) {
        EXPECT_EQ(all.count(u"cap%1"_s.arg(i)), 1);
    }
    EXPECT_EQ(pages.last().count(u"345"_s), 1);
}

// A font would join them, and a search for the word would not find it.
TEST_F(MachineInfoPage, keepsLettersApartThatFontsJoin)
{
    UserFont.FontName = u"DejaVu Sans"_s;
    machine.Name = u"office"_s;
    machine.TypeCode = u"flow"_s;
    const PdfPage page = print(u"first.inv"_s).at(0);
    for (const QString &word : {u"office"_s, u"flow"_s, u"first.inv"_s}) {
        EXPECT_EQ(page.count(word), 1) << word.toStdString();
    }
}

TEST_F(MachineInfoPage, ofAMachineWithoutDataIsEmpty)
{
    PrintJob job(printer, {});
    EXPECT_TRUE(printMachineInfo(job, MachineInfo(), {}));
    job.end();
    EXPECT_EQ(readPdf(fileName()).at(0).count(u"0"_s), 1);
}

} // namespace
