#include "app/services/Settings.h"
#include "desktop/FileDialog.h"
#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "tests/support/FrameTest.h"

#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

class OpenSave : public FrameTest
{
protected:
    void SetUp() override { start(); }
    DocumentFlows &documents() { return frame().documents(); }
    bool open(const QString &fileName) { return documents().OpenPrFile(fileName); }
    QStringList titles()
    {
        QStringList titles;
        for (const frmPrFile *editor : frame().openEditors()) {
            titles << editor->windowTitle();
        }
        return titles;
    }
};

TEST_F(OpenSave, opensTheFileThatTheDialogNames)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    ModalScript script;
    script.thenFile(file);
    chooseMenu(u"mneFile"_s, u"mneFileOpen"_s);
    EXPECT_EQ(titles(), QStringList({u"No Name"_s, QDir::toNativeSeparators(file)}));
    EXPECT_EQ(grid().rowCount(), 2);
    EXPECT_EQ(control<QLabel>(frame(), u"lblPrcount"_s).text(), u"2"_s);
    EXPECT_FALSE(DocFlags[docNo()].changed);
}

TEST_F(OpenSave, showsAndKeepsAJapaneseFileOnAWesternDesktop)
{
    const QByteArray japanese =
        document(2).replace("XT-200", "\x8C\x5E\x81\x5B").replace("Parameter 2,", "\x83\x81\x81\x5B,");
    const QString file = writeFile(u"a.inv"_s, japanese);
    ASSERT_TRUE(open(file));
    EXPECT_EQ(MachineInfos.at(docNo()).Name, u"型ー"_s);
    EXPECT_EQ(grid().cellText(2, 2), u"メー"_s);
    typeInto(2, 1, u"x"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(file), QByteArray(japanese).replace("Parameter 1,", "x,"));
}

TEST_F(OpenSave, refusesWhatTheDocumentsOwnPageLacks)
{
    ASSERT_TRUE(open(writeFile(u"a.inv"_s, document(2).replace("Parameter 2,", "\x83\x81\x81\x5B,"))));
    grid().setText(2, 1, u"é"_s);
    ModalScript script;
    script.thenMessage(u"Row 1: the character \"é\" (U+00E9) does not exist in code page 932."_s, u"OK"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    ASSERT_TRUE(open(writeFile(u"b.inv"_s, document(2)))); // is in the desktop's page again
    grid().setText(2, 1, u"é"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(path(u"b.inv"_s)), document(2).replace("Parameter 1,", "\xE9,"));
}

TEST_F(OpenSave, opensByTheToolButtonAndLeavesTheButtonUp)
{
    ModalScript script;
    script.thenFile(writeFile(u"a.inv"_s, document(2)));
    clickTool(u"ssrbnOpen"_s);
    EXPECT_EQ(titles().size(), 2);
    EXPECT_FALSE(toolButton(u"ssrbnOpen"_s).value());
}

TEST_F(OpenSave, opensOnTheUsualKey)
{
    ModalScript script;
    script.thenEscape();
    pressKey(grid(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(script.asked(), 1);
}

TEST_F(OpenSave, showsTheOpenDialogWithTheParameterFilterInTheWorkingFolder)
{
    ModalScript script;
    script.then([this](QWidget &window) {
        auto &dialog = dynamic_cast<QFileDialog &>(window);
        EXPECT_EQ(dialog.nameFilters(),
            QStringList({u"All files(*.*) (*)"_s, u"Parameter files(*.inv;*.ine) (*.inv *.ine)"_s}));
        EXPECT_TRUE(dialog.testOption(QFileDialog::HideNameFilterDetails));
        EXPECT_EQ(dialog.selectedNameFilter(), u"Parameter files(*.inv;*.ine)"_s);
        EXPECT_EQ(dialog.defaultSuffix(), u"INV"_s);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.directory().canonicalPath(), QDir(path(u"."_s)).canonicalPath());
        dialog.reject();
    });
    chooseMenu(u"mneFile"_s, u"mneFileOpen"_s);
    EXPECT_EQ(titles(), QStringList(u"No Name"_s));
}

TEST_F(OpenSave, looksForTheExtensionWhenTheTypedNameHasNone)
{
    const QString file = writeFile(u"drive.INV"_s, document(2));
    ModalScript script;
    script.thenFile(path(u"drive"_s));
    chooseMenu(u"mneFile"_s, u"mneFileOpen"_s);
    EXPECT_EQ(titles().value(1), QDir::toNativeSeparators(file));
}

TEST_F(OpenSave, opensAFileWithoutExtensionUnlessThereIsOneWithIt)
{
    const QString file = writeFile(u"drive"_s, document(3));
    ModalScript script;
    script.thenFile(u"drive"_s);
    chooseMenu(u"mneFile"_s, u"mneFileOpen"_s);
    EXPECT_EQ(titles().value(1), QDir::toNativeSeparators(file));

    const QString other = writeFile(u"drive.INV"_s, document(2));
    script.thenFile(u"drive"_s);
    chooseMenu(u"mneFile"_s, u"mneFileOpen"_s);
    EXPECT_EQ(titles().value(2), QDir::toNativeSeparators(other));
}

TEST_F(OpenSave, opensTheSameFileTwiceAsTwoWindows)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    EXPECT_TRUE(open(file));
    EXPECT_TRUE(open(file));
    EXPECT_EQ(titles(), QStringList({u"No Name"_s, file, file}));
    EXPECT_NE(frame().openEditors().at(1), frame().openEditors().at(2));
}

TEST_F(OpenSave, usesUpASlotWhenAnOpenFails)
{
    ModalScript script;
    script.thenEscape();
    EXPECT_FALSE(open(path(u"missing.inv"_s)));
    EXPECT_TRUE(open(writeFile(u"a.inv"_s, document(2))));
    EXPECT_EQ(editor().document().number(), 3);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(OpenSave, reusesTheLowestFreeSlot)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    open(file);
    open(file);
    ASSERT_EQ(editor().document().number(), 3);
    frame().openEditors().at(1)->parentWidget()->close();
    frame().openEditors().at(0)->parentWidget()->close();
    open(file);
    EXPECT_EQ(editor().document().number(), 1);
    open(file);
    EXPECT_EQ(editor().document().number(), 2);
    open(file);
    EXPECT_EQ(editor().document().number(), 4);
}

TEST_F(OpenSave, showsNothingOfASlotsFormerDocument)
{
    open(writeFile(u"big.inv"_s, document(5)));
    MachineInfos[docNo()].Option = {u"A"_s, u"B"_s};
    editor().parentWidget()->close();
    open(writeFile(u"small.inv"_s, document(2)));
    EXPECT_EQ(grid().rowCount(), 2);
    EXPECT_EQ(MachineInfos[docNo()].Option, QStringList(u"xx"_s));
    EXPECT_EQ(MachineInfos[docNo()].Capacity, QStringList(u"0.4"_s));
}

TEST_F(OpenSave, showsNothingOfASlotsFormerDocumentForKeysThatTheFileLacks)
{
    open(writeFile(u"full.inv"_s, document(2)));
    const int slot = docNo();
    editor().parentWidget()->close();
    open(writeFile(u"bare.inv"_s, "[Inverter]\r\nName=B\r\nParamater=0\r\n[Paramater]\r\n"));
    ASSERT_EQ(docNo(), slot);
    MachineInfo bare;
    bare.Name = u"B"_s;
    EXPECT_EQ(MachineInfos[slot], bare);
}

TEST_F(OpenSave, keepsNothingOfAFileThatCouldNotBeRead)
{
    const int before = documentUpperBound();
    ModalScript script;
    script.thenEscape();
    EXPECT_FALSE(open(writeFile(u"a.inv"_s, document(2).chopped(30))));
    EXPECT_EQ(documentUpperBound(), before + 1);
    EXPECT_FALSE(MachineInfos.contains(before + 1));
}

TEST_F(OpenSave, refusesADocumentForWhichNoNumberIsLeft)
{
    growDocumentTables(highestDocNo);
    const MachineInfo info = MachineInfos[1];
    ModalScript script;
    for (int i = 0; i < 2; ++i) {
        script.thenEscape();
        EXPECT_FALSE(open(writeFile(u"a.inv"_s, document(2))));
    }
    EXPECT_EQ(documentUpperBound(), highestDocNo);
    EXPECT_EQ(MachineInfos[1], info);
    EXPECT_EQ(titles(), QStringList(u"No Name"_s));
}

TEST_F(OpenSave, tellsOfAFailedReadUnderTheFilesName)
{
    const QString file = path(u"missing.inv"_s);
    ModalScript script;
    script.then([&](QWidget &window) {
        const auto &box = dynamic_cast<QMessageBox &>(window);
        EXPECT_EQ(box.windowTitle(), file);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_FALSE(box.text().isEmpty());
        QTest::keyClick(&window, Qt::Key_Return);
    });
    EXPECT_FALSE(open(file));
    EXPECT_TRUE(recentFiles().isEmpty());
}

TEST_F(OpenSave, failsSilentlyOnAFileWithoutParameters)
{
    const ModalScript script;
    EXPECT_FALSE(open(writeFile(u"a.inv"_s, "[Inverter]\r\nName=X\r\n")));
    EXPECT_EQ(script.asked(), 0);
    EXPECT_EQ(titles(), QStringList(u"No Name"_s));
}

TEST_F(OpenSave, savesTheBytesThatWereOpened)
{
    const QByteArray bytes = document(4);
    open(writeFile(u"a.inv"_s, bytes));
    ModalScript script;
    script.thenFile(path(u"b.inv"_s));
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_EQ(readFile(path(u"b.inv"_s)), bytes);
    EXPECT_EQ(editor().windowTitle(), QDir::toNativeSeparators(path(u"b.inv"_s)));
    EXPECT_EQ(recentFiles().value(0), editor().windowTitle());
}

TEST_F(OpenSave, savesATypedCellInPlace)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    open(file);
    typeInto(2, 2, u"Renamed"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(file), document(2).replace("Parameter 2", "Renamed"));
    EXPECT_FALSE(DocFlags[docNo()].changed);
}

TEST_F(OpenSave, savesAnEditThatIsStillOpen)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    open(file);
    grid().setActiveCell(2, 1);
    pressKey(grid(), Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), u"!"_s);
    pressKey(frame(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(readFile(file).contains(",Parameter 1!,"));
}

TEST_F(OpenSave, keepsTheTitleWhenTheSaveDialogIsCancelled)
{
    open(writeFile(u"a.inv"_s, document(2)));
    const QString title = editor().windowTitle();
    editor().document().markChanged();
    ModalScript script;
    script.thenEscape();
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_EQ(editor().windowTitle(), title);
    EXPECT_EQ(recentFiles(), QStringList(title));
    EXPECT_TRUE(DocFlags[docNo()].changed);
}

TEST_F(OpenSave, asksForANameWhenAnUntitledDocumentIsSaved)
{
    MachineInfos[docNo()].Name = u"XT-1"_s; // without a name, reading leaves the rest of the section alone
    ModalScript script;
    script.thenFile(path(u"new.inv"_s));
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(editor().windowTitle(), QDir::toNativeSeparators(path(u"new.inv"_s)));
    EXPECT_TRUE(open(editor().windowTitle()));
    EXPECT_EQ(grid().rowCount(), 1);
}

TEST_F(OpenSave, showsTheSaveDialogInEnglishWhateverTheLanguage)
{
    setCountryCode(81);
    start();
    ModalScript script;
    script.then([](QWidget &window) {
        auto &dialog = dynamic_cast<QFileDialog &>(window);
        EXPECT_EQ(dialog.nameFilters(),
            QStringList({u"All Files(*.*) (*)"_s, u"Parameter Files(*.inv;*.ine) (*.inv *.ine)"_s}));
        EXPECT_EQ(dialog.selectedNameFilter(), u"Parameter Files(*.inv;*.ine)"_s);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        EXPECT_EQ(dialog.defaultSuffix(), u"INV"_s);
        dialog.reject();
    });
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
}

TEST_F(OpenSave, treatsAFileReallyNamedLikeAnUntitledDocumentAsUntitled)
{
    writeFile(u"No Name"_s, document(2));
    open(u"No Name"_s);
    ASSERT_EQ(titles(), QStringList({u"No Name"_s, u"No Name"_s}));
    ModalScript script;
    script.thenEscape();
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(script.asked(), 1);
}

TEST_F(OpenSave, savesAnUntitledDocumentUnderItsTitleByTheToolButton)
{
    MachineInfos[docNo()].Name = u"XT-1"_s; // without a name it asks
    const ModalScript script;
    clickTool(u"ssrbnSave"_s);
    EXPECT_EQ(script.asked(), 0);
    EXPECT_TRUE(readFile(path(u"No Name"_s)).startsWith("[Inverter]"));
    EXPECT_TRUE(recentFiles().isEmpty());
}

TEST_F(OpenSave, leavesTitleRecentFilesAndChangedFlagWhenWritingFails)
{
    QDir(path(u"."_s)).mkdir(u"folder"_s);
    typeInto(2, 1, u"x"_s);
    ModalScript script;
    script.then([this](QWidget &box) {
        EXPECT_EQ(box.windowTitle(), path(u"folder"_s));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    documents().SavePrFile(editor(), path(u"folder"_s));
    EXPECT_EQ(editor().windowTitle(), u"No Name"_s);
    EXPECT_TRUE(recentFiles().isEmpty());
    EXPECT_TRUE(DocFlags[docNo()].changed);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(OpenSave, savesTheRowCountThatTheFrameShows)
{
    const QString file = writeFile(u"a.inv"_s, document(3));
    open(file);
    chooseMenu(u"mneEdit"_s, u"mneEditAdd"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_TRUE(readFile(file).contains("Paramater=4\r\n"));
}

TEST_F(OpenSave, opensFilesDroppedOnTheFrame)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(writeFile(u"a.inv"_s, document(2))),
        QUrl::fromLocalFile(writeFile(u"b.inv"_s, document(3)))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&frame(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&frame(), &drop);
    EXPECT_EQ(titles().size(), 3);
}

TEST_F(OpenSave, enablesWhatActsOnADocumentWhileOneIsOpen)
{
    for (const QString &name : {u"ssrbnSave"_s, u"ssrbnPrint"_s, u"ssrbnEdit(0)"_s, u"ssrbnEdit(7)"_s}) {
        EXPECT_TRUE(toolButton(name).isEnabled()) << name.toStdString();
    }
    editor().parentWidget()->close();
    for (const QString &name : {u"ssrbnSave"_s, u"ssrbnPrint"_s, u"ssrbnEdit(0)"_s, u"ssrbnEdit(7)"_s}) {
        EXPECT_FALSE(toolButton(name).isEnabled()) << name.toStdString();
    }
    EXPECT_TRUE(toolButton(u"ssrbnOpen"_s).isEnabled());
    open(writeFile(u"a.inv"_s, document(2)));
    for (int i = 0; i < 8; ++i) {
        EXPECT_TRUE(toolButton(u"ssrbnEdit(%1)"_s.arg(i)).isEnabled()) << i;
    }
}

TEST(FileDialogFilters, keepLabelsAndTranslatePatterns)
{
    EXPECT_EQ(fileDialogFilters(u"全てのﾌｧｲﾙ(*.*)|*.*|ﾊﾟﾗﾒｰﾀﾌｧｲﾙ(*.inv;*.ine)|*.inv;*.ine"_s),
        QStringList({u"全てのﾌｧｲﾙ(*.*) (*)"_s, u"ﾊﾟﾗﾒｰﾀﾌｧｲﾙ(*.inv;*.ine) (*.inv *.ine)"_s}));
    EXPECT_EQ(fileDialogFilters(u"Odd|*.a;b.*.*|rest"_s), QStringList(u"Odd (*.a b.*.*)"_s));
    EXPECT_TRUE(fileDialogFilters({}).isEmpty());
}
