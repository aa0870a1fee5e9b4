#include "dialogs/print/PrintSettings.h"
#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "print/PdfFile.h"
#include "tests/support/FrameTest.h"
#include "tests/support/PdfText.h"
#include "tests/support/PrintedGrid.h"
#include "tests/support/ThisSystem.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class PlainPrint : public FrameTest
{
protected:
    void SetUp() override { start(); }
    ~PlainPrint() override { SharedPrintSettings = {}; }
};

TEST_F(PlainPrint, aNameFullOfCodesIsTheHeaderAsItStands)
{
    // Folders named like the codes for left, centre, right, new line and page number
    const QString folder = path(u"l/c/r/n/p"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString name = ThisSystem::allowsBarsInNames() ? u"l/c/r/n/p/pn<b>%1&.inv"_s : u"l/c/r/n/p/pn&lt;b%1&.inv"_s;
    const QString file = writeFile(name, document(2));
    ASSERT_TRUE(frame().documents().OpenPrFile(file));
    const QList<PdfPage> pages =
        PrintedGrid().print(grid(), gridPrintOptions(grid(), SharedPrintSettings, editor().windowTitle()));
    ASSERT_FALSE(pages.isEmpty());
    EXPECT_TRUE(pages.first().lines().first().contains(QDir::toNativeSeparators(u'/' + name)))
        << pages.first().lines().first().toStdString();
}

TEST_F(PlainPrint, aModelNameWithSeparatorsDecidesNoFilesPlace)
{
    QByteArray bytes = document(2);
    bytes.replace("XT-200", "../../<b>/evil");
    const QString base = ThisSystem::allowsBarsInNames() ? u"x[*]"_s : u"x[]"_s;
    const QString file = writeFile(base + u".inv"_s, bytes);
    ASSERT_TRUE(frame().documents().OpenPrFile(file));
    ModalScript script;
    script
        .then([&](QWidget &dialog) {
            control<QCheckBox>(dialog, u"chkPrint(0)"_s).setChecked(true);
            control<QCheckBox>(dialog, u"chkPrint(1)"_s).setChecked(false);
            QTest::mouseClick(&control<QPushButton>(dialog, u"cmdOK"_s), Qt::LeftButton);
        })
        .then([&](QWidget &window) {
            const auto &dialog = dynamic_cast<QFileDialog &>(window);
            EXPECT_EQ(dialog.selectedFiles().value(0), QDir::fromNativeSeparators(path(base + u".pdf"_s)));
            QTest::keyClick(&control<QLineEdit>(window, u"fileNameEdit"_s), Qt::Key_Return);
        });
    chooseMenu(u"mneFile"_s, u"mneFilePrint"_s);
    const QList<PdfPage> pages = readPdf(path(base + u".pdf"_s));
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages.first().count(u"../../<b>/evil"_s), 1);
    EXPECT_EQ(pages.first().count(file), 1);
}
