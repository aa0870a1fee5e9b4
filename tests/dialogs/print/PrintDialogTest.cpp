#include "app/services/Language.h"
#include "desktop/PrintSetupDialog.h"
#include "dialogs/print/PrintSettings.h"
#include "dialogs/print/frmPrint.h"
#include "grid/SpreadGrid.h"
#include "print/CurrentPrinter.h"
#include "tests/support/Controls.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Whatever printers the desk has: the dialog is tested without one.
const bool noPrinters = qputenv("CUPS_SERVER", "/nonexistent/cups.sock");

class PrintDialog : public testing::Test
{
protected:
    PrintDialog()
    {
        LanguageBase = EnglishBase;
        SharedPrintSettings = {};
        grid.setColumnCount(3);
        grid.setRowCount(5);
    }
    ~PrintDialog() override { LanguageBase = EnglishBase; }

    QCheckBox &print(int i) { return control<QCheckBox>(*dialog, u"chkPrint(%1)"_s.arg(i)); }
    QRadioButton &option(int i) { return control<QRadioButton>(*dialog, u"optPrint(%1)"_s.arg(i)); }
    QLineEdit &page(int i) { return control<QLineEdit>(*dialog, u"txtPage(%1)"_s.arg(i)); }
    QPushButton &button(const QString &name) { return control<QPushButton>(*dialog, name); }
    void click(QAbstractButton &clicked)
    {
        // At the text's side: a check box or an option takes no click on the empty part of its row.
        QTest::mouseClick(&clicked, Qt::LeftButton, {}, {10, clicked.height() / 2});
    }
    void clickOk() { click(button(u"cmdOK"_s)); }

    /// Which of optPrint(0..3) and txtPage(0..1) are enabled, as "1"s and "0"s.
    QString enabled()
    {
        QString text;
        for (int i = 0; i < 4; ++i) {
            text += option(i).isEnabled() ? u'1' : u'0';
        }
        text += u' ';
        for (int i = 0; i < 2; ++i) {
            text += page(i).isEnabled() ? u'1' : u'0';
        }
        return text;
    }

    /// Shows the dialog, does something in it and returns its result.
    bool show(const std::function<void()> &action)
    {
        frmPrint shown(u"C:\\data\\a.inv"_s);
        dialog = &shown;
        bool done = false;
        QTimer::singleShot(0, &shown, [&] {
            action();
            done = true;
            shown.close();
        });
        bool result = true;
        shown.PrintShow(grid, result);
        EXPECT_TRUE(done);
        return result;
    }

    SpreadGrid grid;
    frmPrint *dialog = nullptr;
};

struct TextCase
{
    QString name, english, japanese;
};

class PrintDialogTexts : public PrintDialog, public testing::WithParamInterface<TextCase>
{
protected:
    QString shownText()
    {
        const QWidget &found = control<QWidget>(*dialog, GetParam().name);
        const char *property = found.inherits("QGroupBox") ? "title" : "text";
        return found.property(property).toString();
    }
};

TEST_P(PrintDialogTexts, followTheLanguage)
{
    show([this] { EXPECT_EQ(shownText(), GetParam().english); });
    LanguageBase = JapaneseBase;
    show([this] { EXPECT_EQ(shownText(), GetParam().japanese); });
}

INSTANTIATE_TEST_SUITE_P(Controls, PrintDialogTexts,
    testing::ValuesIn(std::vector<TextCase>{
        {u"Label2"_s, u"Printer devise:"_s, u"使用するﾌﾟﾘﾝﾀ:"_s},
        {u"chkPrint(0)"_s, u"Machine &Info"_s, u"機種情報印刷(&I)"_s},
        {u"chkPrint(1)"_s, u"&Parameter"_s, u"ﾊﾟﾗﾒｰﾀ印刷(&P)"_s},
        {u"Frame1"_s, u"Print range selected"_s, u"印刷範囲の選択"_s},
        {u"optPrint(0)"_s, u"&All"_s, u"すべて(&A)"_s},
        {u"optPrint(1)"_s, u"S&elected point"_s, u"選択した部分(&E)"_s},
        {u"optPrint(2)"_s, u"&Display parameter"_s, u"表示ﾊﾟﾗﾒｰﾀ(&D)"_s},
        {u"optPrint(3)"_s, u"Pa&ge"_s, u"ﾍﾟｰｼﾞ指定(&G)"_s},
        {u"lblPage(0)"_s, u"Page to"_s, u"ﾍﾟｰｼﾞから"_s},
        {u"lblPage(1)"_s, u"Page"_s, u"ﾍﾟｰｼﾞまで"_s},
        {u"cmdSet"_s, u"&Setting"_s, u"設定(&S)"_s},
        {u"cmdOK"_s, u"OK"_s, u"OK"_s},
        {u"cmdCancel"_s, u"CANCEL"_s, u"ｷｬﾝｾﾙ"_s},
    }));

TEST_F(PrintDialog, carriesTheEditorWindowsCaption)
{
    show([this] { EXPECT_EQ(dialog->windowTitle(), u"C:\\data\\a.inv"_s); });
}

TEST_F(PrintDialog, showsNoPrinterNameWithoutAPrinter)
{
    show([this] { EXPECT_EQ(control<QLabel>(*dialog, u"lblPrinter"_s).text(), QString()); });
}

TEST_F(PrintDialog, beginsWithEverythingAndThePageBoxesDisabled)
{
    show([this] {
        EXPECT_TRUE(print(0).isChecked());
        EXPECT_TRUE(print(1).isChecked());
        EXPECT_TRUE(option(0).isChecked());
        EXPECT_EQ(enabled(), u"1011 00"_s);
    });
}

TEST_F(PrintDialog, offersTheSelectedPartWhenABlockIsSelected)
{
    grid.selectBlock({1, 2, 2, 3});
    show([this] { EXPECT_EQ(enabled(), u"1111 00"_s); });
    grid.selectBlock({-1, 2, 3, 2});
    show([this] { EXPECT_EQ(enabled(), u"1111 00"_s); });
    grid.selectBlock({2, 2, 2, 2});
    show([this] { EXPECT_EQ(enabled(), u"1011 00"_s); });
}

TEST_F(PrintDialog, enablesTheRangeWithTheParameters)
{
    show([this] {
        click(print(1));
        EXPECT_EQ(enabled(), u"0000 00"_s);
        click(print(1));
        EXPECT_EQ(enabled(), u"1011 00"_s);
        click(option(3));
        EXPECT_EQ(enabled(), u"1011 11"_s);
        click(print(0));
        EXPECT_EQ(enabled(), u"1011 11"_s);
        click(print(1));
        EXPECT_EQ(enabled(), u"0000 00"_s);
        click(print(1));
        EXPECT_EQ(enabled(), u"1011 11"_s);
        click(option(2));
        EXPECT_EQ(enabled(), u"1011 00"_s);
    });
}

TEST_F(PrintDialog, keepsTheSelectedPartEnabledAsTheSelectionSays)
{
    grid.selectBlock({1, 1, 2, 2});
    show([this] {
        click(print(1));
        EXPECT_EQ(enabled(), u"0000 00"_s);
        click(print(1));
        EXPECT_EQ(enabled(), u"1111 00"_s);
    });
}

TEST_F(PrintDialog, storesTheFlagsAndTheTypeOnOk)
{
    grid.selectBlock({1, 1, 2, 2});
    for (qint16 type = 0; type < 3; ++type) {
        SharedPrintSettings = {{5, 5}, 9, 7, 8};
        EXPECT_TRUE(show([this, type] {
            click(option(type));
            click(print(0));
            clickOk();
        }));
        EXPECT_EQ(SharedPrintSettings, (PrintSettings{{0, 1}, type, 7, 8}));
    }
}

TEST_F(PrintDialog, leavesTypeAndPagesAloneWithoutParameters)
{
    SharedPrintSettings = {{0, 0}, 2, 7, 8};
    EXPECT_TRUE(show([this] {
        click(option(3));
        click(print(1));
        clickOk();
    }));
    EXPECT_EQ(SharedPrintSettings, (PrintSettings{{1, 0}, 2, 7, 8}));
}

TEST_F(PrintDialog, printsNothingWithoutATick)
{
    EXPECT_FALSE(show([this] {
        click(print(0));
        click(print(1));
        clickOk();
    }));
    EXPECT_EQ(SharedPrintSettings.flags, (std::array<qint16, 2>{0, 0}));
}

struct PagesCase
{
    QString from, to;
    qint16 storedFrom, storedTo;
};

class PrintDialogPages : public PrintDialog, public testing::WithParamInterface<PagesCase>
{
};

TEST_P(PrintDialogPages, areStoredAsNumbers)
{
    SharedPrintSettings = {{0, 0}, 0, 77, 88};
    EXPECT_TRUE(show([this] {
        click(option(3));
        QTest::keyClicks(&page(0), GetParam().from);
        QTest::keyClicks(&page(1), GetParam().to);
        clickOk();
    }));
    EXPECT_EQ(SharedPrintSettings, (PrintSettings{{1, 1}, 3, GetParam().storedFrom, GetParam().storedTo}));
}

INSTANTIATE_TEST_SUITE_P(Typed, PrintDialogPages,
    testing::ValuesIn(std::vector<PagesCase>{
        {u""_s, u""_s, 0, 0},
        {u"2"_s, u"5"_s, 2, 5},
        {u"7"_s, u"3"_s, 7, 3},
        {u"x"_s, u" 4p"_s, 0, 4},
        {u"-1"_s, u"2.5"_s, -1, 2},
        {u"32768"_s, u"99999999999"_s, 32767, 32767},
    }));

TEST_F(PrintDialog, changesNothingOnCancel)
{
    SharedPrintSettings = {{1, 0}, 2, 7, 8};
    const PrintSettings before = SharedPrintSettings;
    EXPECT_FALSE(show([this] {
        click(print(0));
        click(button(u"cmdCancel"_s));
    }));
    EXPECT_FALSE(show([this] {
        click(print(0));
        QTest::keyClick(dialog, Qt::Key_Escape);
    }));
    EXPECT_FALSE(show([this] { dialog->close(); }));
    EXPECT_EQ(SharedPrintSettings, before);
}

TEST_F(PrintDialog, takesEnterAsOk)
{
    EXPECT_TRUE(show([this] { QTest::keyClick(&option(0), Qt::Key_Return); }));
}

TEST_F(PrintDialog, answersItsAccessKeys)
{
    grid.selectBlock({1, 1, 2, 2});
    show([this] {
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog, patience));
        QTest::keyClick(dialog, Qt::Key_I, Qt::AltModifier);
        EXPECT_FALSE(print(0).isChecked());
        const Qt::Key keys[] = {Qt::Key_A, Qt::Key_E, Qt::Key_D, Qt::Key_G};
        for (int i = 3; i >= 0; --i) {
            QTest::keyClick(dialog, keys[i], Qt::AltModifier);
            EXPECT_TRUE(option(i).isChecked()) << i;
        }
        QTest::keyClick(dialog, Qt::Key_P, Qt::AltModifier);
        EXPECT_FALSE(print(1).isChecked());
    });
}

TEST_F(PrintDialog, letsNoEnterOvertakeAnAccessKey)
{
    EXPECT_TRUE(show([this] {
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog, patience));
        QTest::keyClick(dialog, Qt::Key_P, Qt::AltModifier);
        QTest::keyClick(dialog, Qt::Key_Return);
    }));
    EXPECT_EQ(SharedPrintSettings.flags, (std::array<qint16, 2>{1, 0}));
}

TEST_F(PrintDialog, endsAnOpenEditOfTheGrid)
{
    grid.show();
    grid.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&grid, patience));
    grid.setActiveCell(1, 1);
    grid.setFocus();
    QTest::keyClicks(&grid, u"1"_s);
    auto *editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, u"2"_s);
    EXPECT_EQ(grid.text(1, 1), QString());
    show([] {});
    EXPECT_EQ(grid.text(1, 1), u"12"_s);
}

/// Does something in the printer set-up dialog that cmdSet opens.
void inSetup(QPushButton &setup, const std::function<void(QDialog &)> &action)
{
    bool seen = false;
    QTimer::singleShot(0, &setup, [&] {
        auto *shown = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(shown, setup.window());
        action(*shown);
        seen = true;
        if (shown->isVisible()) {
            shown->reject();
        }
    });
    QTest::mouseClick(&setup, Qt::LeftButton);
    EXPECT_TRUE(seen);
}

/// The field for the name of a PDF file, which is in a dialog for files where the system's set-up has none.
QLineEdit &fileNameIn(QDialog &setup)
{
    return control<QLineEdit>(setup, printSetupTakesFiles() ? u"filename"_s : u"fileNameEdit"_s);
}

void clickOkOf(QDialog &setup)
{
    const auto &buttons = control<QDialogButtonBox>(setup, {});
    for (QAbstractButton *button : buttons.buttons()) {
        if (buttons.buttonRole(button) == QDialogButtonBox::AcceptRole) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
}

TEST_F(PrintDialog, opensThePrinterSetupWithoutRangeAndSelection)
{
    if (!printSetupTakesFiles()) {
        GTEST_SKIP() << "without a printer there is no set-up, but a dialog for the name of a file";
    }
    show([this] {
        inSetup(button(u"cmdSet"_s), [](QDialog &shown) {
            const auto &setup = dynamic_cast<QPrintDialog &>(shown);
            EXPECT_FALSE(setup.testOption(QAbstractPrintDialog::PrintSelection));
            EXPECT_FALSE(setup.testOption(QAbstractPrintDialog::PrintPageRange));
            EXPECT_FALSE(setup.testOption(QAbstractPrintDialog::PrintCurrentPage));
            EXPECT_EQ(setup.testOption(QAbstractPrintDialog::PrintToFile), !CurrentPrinter::isPresent());
            EXPECT_EQ(control<QDialogButtonBox>(setup, {}).button(QDialogButtonBox::Ok)->text(), u"OK"_s);
        });
        EXPECT_EQ(control<QLabel>(*dialog, u"lblPrinter"_s).text(), CurrentPrinter::deviceName());
    });
    EXPECT_EQ(CurrentPrinter::takeChosenFile(), QString());
}

TEST_F(PrintDialog, takesNoFileFromASetupThatIsCancelled)
{
    show([this] {
        inSetup(button(u"cmdSet"_s), [](QDialog &setup) { EXPECT_EQ(setup.windowTitle(), u"Setting"_s); });
        EXPECT_EQ(control<QLabel>(*dialog, u"lblPrinter"_s).text(), QString());
    });
    EXPECT_EQ(CurrentPrinter::takeChosenFile(), QString());
}

TEST_F(PrintDialog, presetsTheSetupsFileAndTakesAnotherOne)
{
    const QTemporaryDir folder;
    const QString other = folder.filePath(u"other.pdf"_s);
    show([&] {
        inSetup(button(u"cmdSet"_s), [&](QDialog &setup) {
            EXPECT_TRUE(fileNameIn(setup).text().endsWith(u"a.pdf"_s));
            fileNameIn(setup).setText(other);
            clickOkOf(setup);
            EXPECT_FALSE(setup.isVisible());
        });
    });
    EXPECT_EQ(QDir::cleanPath(CurrentPrinter::takeChosenFile()), other);
    EXPECT_EQ(CurrentPrinter::takeChosenFile(), QString());
}

// The set-up writes no file: whether an existing one may be replaced is asked when the document is printed.
TEST_F(PrintDialog, doesNotAskAboutAnExistingFile)
{
    const QTemporaryDir folder;
    const QString there = folder.filePath(u"there.pdf"_s);
    QFile file(there);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QString question;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&question] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            question = box->text();
            box->reject();
        }
    });
    watch.start(0);
    show([&] {
        inSetup(button(u"cmdSet"_s), [&](QDialog &setup) {
            fileNameIn(setup).setText(there);
            clickOkOf(setup);
            EXPECT_FALSE(setup.isVisible());
        });
    });
    EXPECT_EQ(question, QString());
    EXPECT_EQ(QDir::cleanPath(CurrentPrinter::takeChosenFile()), there);
}

TEST_F(PrintDialog, keepsTheSetupForTheRun)
{
    CurrentPrinter::printer().setPageOrientation(QPageLayout::Landscape);
    show([this] {
        inSetup(button(u"cmdSet"_s), [](QDialog &shown) {
            if (printSetupTakesFiles()) {
                const auto &setup = dynamic_cast<QPrintDialog &>(shown);
                EXPECT_EQ(setup.printer()->pageLayout().orientation(), QPageLayout::Landscape);
            }
        });
    });
    EXPECT_EQ(CurrentPrinter::printer().pageLayout().orientation(), QPageLayout::Landscape);
    CurrentPrinter::printer().setPageOrientation(QPageLayout::Portrait);
}

} // namespace
