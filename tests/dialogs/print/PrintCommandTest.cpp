#include "dialogs/print/PrintCommand.h"

#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "dialogs/print/DocumentPrinter.h"
#include "dialogs/print/PrintSettings.h"
#include "dialogs/print/frmPrint.h"
#include "document/DocumentTables.h"
#include "grid/SpreadGrid.h"
#include "print/CurrentPrinter.h"
#include "print/PdfFile.h"
#include "print/PrintAbortBox.h"
#include "tests/support/Controls.h"
#include "tests/support/PrintedGrid.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/SmallDisk.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Answers each modal window of a kind as soon as it is shown.
class User
{
public:
    User()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(0);
    }

    template <typename Window>
    void on(std::function<void(Window &)> answer)
    {
        m_answers.append([answer](QWidget &window) {
            auto *shown = qobject_cast<Window *>(&window);
            if (shown) {
                answer(*shown);
            }
            return shown != nullptr;
        });
    }

    /// The windows that were met, by class name.
    const QStringList &met() const { return m_met; }

private:
    void look()
    {
        QWidget *window = QApplication::activeModalWidget();
        if (!window || window == m_last) {
            return;
        }
        m_last = window;
        m_met << QString::fromLatin1(window->metaObject()->className());
        const bool answered = std::ranges::any_of(m_answers, [window](const auto &answer) { return answer(*window); });
        if (!answered && !qobject_cast<PrintAbortBox *>(window)) {
            window->close(); // nobody knows it; hanging here would help no one
        }
    }

    QTimer m_timer;
    QPointer<QWidget> m_last;
    QStringList m_met;
    QList<std::function<bool(QWidget &)>> m_answers;
};

class PrintCommand : public testing::Test
{
protected:
    PrintCommand()
    {
        LanguageBase = EnglishBase;
        UserFont = {};
        SharedPrintSettings = {};
        resetDocumentTables();
        growDocumentTables(1);
        MachineInfos[1].Name = u"XT200"_s;
        MachineInfos[1].Paramater = 60;
        fillGrid(grid, 3, 60);
        window.resize(300, 200);
    }
    ~PrintCommand() override { resetDocumentTables(); }

    QString title() const { return folder.filePath(u"xt.200.inv"_s); }
    QString presetName() const { return folder.filePath(u"xt.200.pdf"_s); }

    /// What the user ticks in the print dialog before pressing OK.
    void choose(bool machineInfo, bool parameters)
    {
        user.on<frmPrint>([=](frmPrint &dialog) {
            control<QCheckBox>(dialog, u"chkPrint(0)"_s).setChecked(machineInfo);
            control<QCheckBox>(dialog, u"chkPrint(1)"_s).setChecked(parameters);
            QTest::mouseClick(&control<QPushButton>(dialog, u"cmdOK"_s), Qt::LeftButton);
        });
    }
    void choosePages(bool machineInfo, const QString &from, const QString &to)
    {
        user.on<frmPrint>([=](frmPrint &dialog) {
            control<QCheckBox>(dialog, u"chkPrint(0)"_s).setChecked(machineInfo);
            control<QRadioButton>(dialog, u"optPrint(3)"_s).setChecked(true);
            control<QLineEdit>(dialog, u"txtPage(0)"_s).setText(from);
            control<QLineEdit>(dialog, u"txtPage(1)"_s).setText(to);
            QTest::mouseClick(&control<QPushButton>(dialog, u"cmdOK"_s), Qt::LeftButton);
        });
    }
    void readMessage()
    {
        user.on<QMessageBox>([this](QMessageBox &box) {
            message = box.text();
            box.close();
        });
    }
    void acceptPreset()
    {
        user.on<QFileDialog>([this](QFileDialog &dialog) {
            asked = dialog.selectedFiles().value(0);
            QTest::keyClick(&control<QLineEdit>(dialog, u"fileNameEdit"_s), Qt::Key_Return);
        });
    }
    void typeName(const QString &name)
    {
        user.on<QFileDialog>([name](QFileDialog &dialog) {
            auto &box = control<QLineEdit>(dialog, u"fileNameEdit"_s);
            box.setText(name);
            QTest::keyClick(&box, Qt::Key_Return);
        });
    }
    void print() { printDocument(&window, grid, MachineInfos[1], title()); }

    QTemporaryDir folder;
    QWidget window;
    SpreadGrid grid;
    User user;
    QString asked;
    QString message;
};

TEST_F(PrintCommand, printsMachineInformationAndThenTheGridIntoOneFile)
{
    choose(true, true);
    acceptPreset();
    print();
    EXPECT_EQ(asked, presetName());
    const QList<PdfPage> pages = readPdf(presetName());
    ASSERT_GE(pages.size(), 3);
    EXPECT_EQ(pages.at(0).count(u"XT200"_s), 1);
    EXPECT_EQ(pages.at(0).count(u"c1r1"_s), 0);
    EXPECT_EQ(pages.at(1).count(u"c1r1"_s), 1);
    EXPECT_EQ(pages.at(1).texts().last(), u"1"_s); // the grid's own page number
    EXPECT_EQ(pages.at(2).texts().last(), u"2"_s);
    EXPECT_EQ(pages.last().count(u"c3r60"_s), 1);
}

TEST_F(PrintCommand, printsTheMachineInformationAlone)
{
    choose(true, false);
    acceptPreset();
    print();
    const QList<PdfPage> pages = readPdf(presetName());
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages.at(0).count(u"XT200"_s), 1);
    EXPECT_FALSE(user.met().contains(u"PrintAbortBox"_s));
}

TEST_F(PrintCommand, printsTheParametersAlone)
{
    choose(false, true);
    acceptPreset();
    print();
    const QList<PdfPage> pages = readPdf(presetName());
    EXPECT_EQ(pages.at(0).count(u"XT200"_s), 0);
    EXPECT_EQ(pages.at(0).count(u"c1r1"_s), 1);
    const QString firstWords = pages.at(0).texts().first(2).join(u' ');
    EXPECT_EQ(firstWords, u"File name:"_s + title());
}

TEST_F(PrintCommand, printsTheSelectedBlock)
{
    grid.selectBlock({2, 10, 3, 11});
    user.on<frmPrint>([](frmPrint &dialog) {
        control<QRadioButton>(dialog, u"optPrint(1)"_s).setChecked(true);
        control<QCheckBox>(dialog, u"chkPrint(0)"_s).setChecked(false);
        QTest::mouseClick(&control<QPushButton>(dialog, u"cmdOK"_s), Qt::LeftButton);
    });
    acceptPreset();
    print();
    const QList<PdfPage> pages = readPdf(presetName());
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages.at(0).texts().filter(u"r1"_s), (QStringList{u"c2r10"_s, u"c3r10"_s, u"c2r11"_s, u"c3r11"_s}));
}

TEST_F(PrintCommand, printsNothingWhenNothingIsTicked)
{
    choose(false, false);
    print();
    EXPECT_EQ(user.met(), QStringList{u"frmPrint"_s});
    EXPECT_FALSE(QFile::exists(presetName()));
}

TEST_F(PrintCommand, printsNothingOnCancel)
{
    user.on<frmPrint>(
        [](frmPrint &dialog) { QTest::mouseClick(&control<QPushButton>(dialog, u"cmdCancel"_s), Qt::LeftButton); });
    print();
    EXPECT_EQ(user.met(), QStringList{u"frmPrint"_s});
}

TEST_F(PrintCommand, printsNothingWhenNoFileIsNamed)
{
    choose(true, true);
    user.on<QFileDialog>([](QFileDialog &dialog) { dialog.reject(); });
    print();
    EXPECT_EQ(user.met(), (QStringList{u"frmPrint"_s, u"QFileDialog"_s}));
    EXPECT_FALSE(QFile::exists(presetName()));
}

struct EmptyRange
{
    QString from, to, message;
};

class PrintCommandRange : public PrintCommand, public testing::WithParamInterface<EmptyRange>
{
};

TEST_P(PrintCommandRange, isToldWhenItHoldsNoPage)
{
    choosePages(false, GetParam().from, GetParam().to);
    readMessage();
    print();
    EXPECT_EQ(message, GetParam().message);
    EXPECT_FALSE(QFile::exists(presetName()));
    EXPECT_EQ(user.met(), (QStringList{u"frmPrint"_s, u"QMessageBox"_s})) << "no name is asked for";
}

INSTANTIATE_TEST_SUITE_P(, PrintCommandRange,
    testing::Values(EmptyRange{u"3"_s, u"1"_s,
                        u"There is no page to print from page 3 to page 1. The last page of the parameters is 2."_s},
        EmptyRange{u"500"_s, u""_s,
            u"There is no page to print from page 500 to page 500. The last page of the parameters is 2."_s}));

TEST_F(PrintCommand, stillPrintsTheMachineInformationBesideAnEmptyRange)
{
    LanguageBase = JapaneseBase;
    choosePages(true, u"3"_s, u"1"_s);
    readMessage();
    acceptPreset();
    print();
    EXPECT_EQ(
        message, u"3 ページから 1 ページまでの間に印刷するページがありません。パラメータの最終ページは 2 です。"_s);
    EXPECT_EQ(readPdf(presetName()).size(), 1);
    LanguageBase = EnglishBase;
}

TEST_F(PrintCommand, reportsThatAllColumnsAreHidden)
{
    for (int column = 1; column <= 3; ++column) {
        grid.setColumnShown(column, false);
    }
    choose(false, true);
    readMessage();
    print();
    EXPECT_EQ(message, u"There are no parameters to print because their columns are hidden."_s);
    EXPECT_EQ(user.met(), (QStringList{u"frmPrint"_s, u"QMessageBox"_s})) << "no name is asked for";
}

TEST_F(PrintCommand, reportsWhyAFileCannotBeWritten)
{
    const QString place = folder.filePath(u"taken.pdf"_s);
    ASSERT_TRUE(QDir().mkdir(place));
    QString text, caption;
    user.on<QMessageBox>([&](QMessageBox &box) {
        text = box.text();
        caption = box.windowTitle();
        box.close();
    });
    SharedPrintSettings.flags = {1, 1};
    DocumentPrinter(&window, grid, MachineInfos[1], title()).toPdf(place, QPrinter().pageLayout());
    EXPECT_FALSE(text.isEmpty());
    EXPECT_EQ(caption, title());
    EXPECT_EQ(user.met(), QStringList{u"QMessageBox"_s});
}

TEST_F(PrintCommand, reportsAFullDiskAndKeepsTheEarlierFile)
{
    if (!SmallDisk::isPossible()) {
        GTEST_SKIP();
    }
    const QString place = folder.filePath(u"full.pdf"_s);
    QFile earlier(place);
    ASSERT_TRUE(earlier.open(QIODevice::WriteOnly));
    earlier.write("earlier");
    earlier.close();
    QString text;
    user.on<QMessageBox>([&](QMessageBox &box) {
        text = box.text();
        box.close();
    });
    SharedPrintSettings.flags = {1, 1};
    {
        const SmallDisk disk(2000);
        DocumentPrinter(&window, grid, MachineInfos[1], title()).toPdf(place, QPrinter().pageLayout());
    }
    EXPECT_TRUE(text == u"File too large"_s || text == u"Printer error"_s) << text.toStdString();
    ASSERT_TRUE(earlier.open(QIODevice::ReadOnly));
    EXPECT_EQ(earlier.readAll(), "earlier"_ba);
}

TEST_F(PrintCommand, leavesNoFileBehindWhenItIsCancelled)
{
    fillGrid(grid, 3, 2000);
    choose(true, true);
    acceptPreset();
    QString text, caption;
    user.on<PrintAbortBox>([&](PrintAbortBox &box) {
        text = control<QLabel>(box, u"lblAbort"_s).text();
        caption = control<QPushButton>(box, u"cmdCancel"_s).text();
        QTest::mouseClick(&control<QPushButton>(box, u"cmdCancel"_s), Qt::LeftButton);
    });
    print();
    EXPECT_EQ(text, u"Stop Printintg..."_s);
    EXPECT_EQ(caption, u"CANCEL"_s);
    EXPECT_FALSE(QFile::exists(presetName()));
    EXPECT_EQ(user.met(), (QStringList{u"frmPrint"_s, u"QFileDialog"_s, u"PrintAbortBox"_s}));
}

TEST_F(PrintCommand, keepsThePagesOfTheChosenPaper)
{
    CurrentPrinter::printer().setPageOrientation(QPageLayout::Landscape);
    choose(true, true);
    typeName(folder.filePath(u"landscape.pdf"_s));
    print();
    CurrentPrinter::printer().setPageOrientation(QPageLayout::Portrait);
    for (const PdfPage &page : readPdf(folder.filePath(u"landscape.pdf"_s))) {
        EXPECT_GT(page.size.width(), page.size.height());
    }
}

/// What a printer gets, as one file per job (the last job's stays).
TEST_F(PrintCommand, sendsAPrinterTheJobsThatAreWanted)
{
    QPrinter printer(QPrinter::HighResolution);
    const QString place = folder.filePath(u"job.pdf"_s);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(place);
    DocumentPrinter document(&window, grid, MachineInfos[1], title());

    SharedPrintSettings.flags = {1, 0};
    document.toPrinter(printer);
    EXPECT_EQ(readPdf(place).value(0).count(u"XT200"_s), 1);

    SharedPrintSettings.flags = {1, 1};
    document.toPrinter(printer);
    EXPECT_EQ(readPdf(place).value(0).count(u"XT200"_s), 0);
    EXPECT_EQ(readPdf(place).value(0).count(u"c1r1"_s), 1);
    EXPECT_EQ(printer.docName(), title());
}

TEST_F(PrintCommand, reportsThatAPrinterTakesNothing)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(u"no/such/folder.pdf"_s));
    QString text;
    user.on<QMessageBox>([&](QMessageBox &box) {
        text = box.text();
        box.close();
    });
    SharedPrintSettings.flags = {1, 1};
    DocumentPrinter(&window, grid, MachineInfos[1], title()).toPrinter(printer);
    EXPECT_EQ(text, u"Printer error"_s);
    EXPECT_EQ(user.met(), QStringList{u"QMessageBox"_s});
}

TEST_F(PrintCommand, headsAndNumbersThePagesOfTheGrid)
{
    const GridPrintOptions options = gridPrintOptions(grid, {{0, 1}, 3, 4, 6}, u"/p&/n.inv"_s);
    EXPECT_EQ(options.type, GridPrintType::PageRange);
    EXPECT_EQ(options.pageFrom, 4);
    EXPECT_EQ(options.pageTo, 6);
    EXPECT_EQ(options.header.lines(9), (QList<PageTextLine>{{u"File name:/p&/n.inv"_s, {}, {}}, {}}));
    EXPECT_EQ(options.footer.lines(9), (QList<PageTextLine>{{{}, u" 9"_s, {}}}));
}

struct PdfNameCase
{
    QString title, name;
};

class PdfName : public testing::TestWithParam<PdfNameCase>
{
};

/// With a drive before it, where a full path has one.
QString onDrive(const QString &path)
{
    return path.startsWith(u'/') ? QDir::rootPath().chopped(1) + path : path;
}

TEST_P(PdfName, isTheDocuments)
{
    EXPECT_EQ(pdfFileName(onDrive(GetParam().title)), onDrive(GetParam().name).replace(u'~', QDir::homePath()));
}

INSTANTIATE_TEST_SUITE_P(Titles, PdfName,
    testing::ValuesIn(std::vector<PdfNameCase>{
        {u"/a/b.inv"_s, u"/a/b.pdf"_s},
        {u"/a/b.c.ine"_s, u"/a/b.c.pdf"_s},
        {u"/a/b"_s, u"/a/b.pdf"_s},
        {u"No Name"_s, u"~/No Name.pdf"_s},
        {u"無題"_s, u"~/無題.pdf"_s},
    }));

} // namespace
