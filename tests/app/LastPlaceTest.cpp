// What the program remembers while it runs: folders and the places of windows.

#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QTreeView>

using namespace Qt::StringLiterals;

class LastPlace : public FrameTest
{
protected:
    void SetUp() override
    {
        QDir(path(u"."_s)).mkpath(u"far"_s);
        QDir(path(u"."_s)).mkpath(u"near"_s);
    }

    bool open(const QString &fileName) { return frame().documents().OpenPrFile(fileName); }
    QMdiSubWindow &window() { return dynamic_cast<QMdiSubWindow &>(*editor().parentWidget()); }
    void closeWindow()
    {
        window().close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Opens a dialog by that command; returns the folder in which it begins.
    QString beginning(const QString &command)
    {
        QString folder;
        ModalScript script;
        script.then([&](QWidget &dialog) {
            folder = dynamic_cast<QFileDialog &>(dialog).directory().canonicalPath();
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        chooseMenu(u"mneFile"_s, command);
        return folder;
    }
    QString folder(const QString &name) { return QDir(path(name)).canonicalPath(); }
    void chooseFile(const QString &command, const QString &fileName)
    {
        ModalScript script;
        script.thenFile(fileName);
        chooseMenu(u"mneFile"_s, command);
    }
};

TEST_F(LastPlace, dialogsBeginWhereAFileWasOpenedLast)
{
    start();
    EXPECT_EQ(beginning(u"mneFileOpen"_s), folder(u"."_s));
    chooseFile(u"mneFileOpen"_s, writeFile(u"far/a.inv"_s, document(2)));
    EXPECT_EQ(beginning(u"mneFileOpen"_s), folder(u"far"_s));
    EXPECT_EQ(beginning(u"mneFileSaveAs"_s), folder(u"far"_s));
}

TEST_F(LastPlace, dialogsBeginWhereAFileWasSavedLast)
{
    start();
    MachineInfos[docNo()].Name = u"XT-1"_s; // without a name it asks
    chooseFile(u"mneFileSaveAs"_s, path(u"near/b.inv"_s));
    ASSERT_TRUE(QFile::exists(path(u"near/b.inv"_s)));
    EXPECT_EQ(beginning(u"mneFileOpen"_s), folder(u"near"_s));
}

TEST_F(LastPlace, aCancelledDialogChangesNoFolder)
{
    start();
    const QString before = QDir::currentPath();
    beginning(u"mneFileOpen"_s);
    EXPECT_EQ(QDir::currentPath(), before);
}

TEST_F(LastPlace, dialogsOfADocumentWithoutAFileFollowTheWorkingFolder)
{
    start();
    QDir::setCurrent(path(u"near"_s));
    EXPECT_EQ(beginning(u"mneFileOpen"_s), folder(u"near"_s));
    EXPECT_EQ(beginning(u"mneFileSaveAs"_s), folder(u"near"_s));
}

TEST_F(LastPlace, dialogsBeginBesideTheActiveDocument)
{
    start();
    ASSERT_TRUE(open(writeFile(u"far/a.inv"_s, document(2))));
    const QString far = folder(u"far"_s);
    QDir::setCurrent(path(u"near"_s));
    EXPECT_EQ(beginning(u"mneFileOpen"_s), far);
    EXPECT_EQ(beginning(u"mneFileSaveAs"_s), far);
    QFile::remove(path(u"far/a.inv"_s));
    QDir().rmdir(path(u"far"_s));
    EXPECT_EQ(beginning(u"mneFileOpen"_s), folder(u"near"_s)) << "its folder is gone";
}

// The dialog is ready for typing once the files of the folder are listed.
class PresetName : public LastPlace
{
protected:
    void SetUp() override
    {
        LastPlace::SetUp();
        start();
        ASSERT_TRUE(open(writeFile(u"far/a.inv"_s, document(2))));
        writeFile(u"far/b.inv"_s, document(2));
        typeInto(2, 1, u"typed"_s);
    }

    /// Presses keys in the dialog once it lists its files and has the focus.
    ModalScript::Answer keys(const std::function<void(QLineEdit &)> &act)
    {
        return [act](QWidget &dialog) {
            auto &box = control<QLineEdit>(dialog, u"fileNameEdit"_s);
            const auto &list = control<QListView>(dialog, u"listView"_s);
            ASSERT_TRUE(QTest::qWaitFor(
                [&] { return list.model()->rowCount(list.rootIndex()) >= 2 && box.hasFocus(); }, patience));
            QApplication::processEvents();
            // Later, because the dialog may ask a question first, which is the script's to answer too
            QTimer::singleShot(0, &box, [act, &box] { act(box); });
        };
    }
    static void typeName(QLineEdit &box, const QString &name)
    {
        QTest::keyClicks(&box, name);
        EXPECT_EQ(box.text(), name);
        QTest::keyClick(&box, Qt::Key_Return);
    }
    bool holdsTyped(const QString &name) { return readFile(path(name)).contains(",typed,"); }
};

TEST_F(PresetName, isTheDocumentsOwnAndReadyToBeTypedOver)
{
    ModalScript script;
    script.then(keys([](QLineEdit &box) {
        EXPECT_EQ(box.text(), u"a.inv"_s);
        EXPECT_EQ(box.selectedText(), u"a.inv"_s);
        QTest::keyClick(&box, Qt::Key_Escape);
    }));
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
}

TEST_F(PresetName, isTakenByEnterAfterTheQuestion)
{
    const QString question = u"a.inv already exists.\nDo you want to replace it?"_s;
    ModalScript script;
    script.then(keys([](QLineEdit &box) { QTest::keyClick(&box, Qt::Key_Return); }));
    script.thenMessage(question, u"&Yes"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_TRUE(holdsTyped(u"far/a.inv"_s));
}

TEST_F(PresetName, givesWayToANewNameWithoutAQuestion)
{
    ModalScript script;
    script.then(keys([](QLineEdit &box) { typeName(box, u"other.inv"_s); }));
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_TRUE(holdsTyped(u"far/other.inv"_s));
    EXPECT_FALSE(holdsTyped(u"far/a.inv"_s));
    EXPECT_EQ(editor().windowTitle(), path(u"far/other.inv"_s));
}

TEST_F(PresetName, givesWayToAnotherFilesNameAfterItsQuestion)
{
    ModalScript script;
    script.then(keys([](QLineEdit &box) { typeName(box, u"b.inv"_s); }));
    script.thenMessage(u"b.inv already exists.\nDo you want to replace it?"_s, u"&Yes"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_TRUE(holdsTyped(u"far/b.inv"_s));
    EXPECT_FALSE(holdsTyped(u"far/a.inv"_s));
}

TEST_F(PresetName, maySimplyBeGoneOnWith)
{
    ModalScript script;
    script.then(keys([](QLineEdit &box) {
        QTest::keyClick(&box, Qt::Key_Home);
        QTest::keyClicks(&box, u"new "_s);
        QTest::keyClick(&box, Qt::Key_Return);
    }));
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_TRUE(holdsTyped(u"far/new a.inv"_s));
    EXPECT_FALSE(holdsTyped(u"far/a.inv"_s));
}

// What sets the box's text otherwise, an input aid say, does not give it the focus.
TEST_F(PresetName, givesWayToANameThatIsPutIntoTheBox)
{
    chooseFile(u"mneFileSaveAs"_s, path(u"far/other.inv"_s));
    EXPECT_TRUE(holdsTyped(u"far/other.inv"_s));
    EXPECT_FALSE(holdsTyped(u"far/a.inv"_s));
}

TEST_F(PresetName, isEmptyForADocumentWithoutAFileAndForOpening)
{
    const auto empty = [](QLineEdit &box) {
        EXPECT_EQ(box.text(), QString());
        QTest::keyClick(&box, Qt::Key_Escape);
    };
    ModalScript script;
    script.then(keys(empty)).then(keys(empty));
    chooseMenu(u"mneFile"_s, u"mneFileOpen"_s);
    frmPrFile &untitled = *frame().openEditors().first();
    QDir::setCurrent(path(u"far"_s));
    frame().documents().SavePrFile(untitled, untitled.windowTitle()); // while another one is the active document
}

TEST_F(LastPlace, fileDialogsShowTheirColumnsWhole)
{
    start();
    ASSERT_TRUE(open(writeFile(u"a parameter file of a usual length.inv"_s, document(2))));
    ModalScript script;
    script.then([](QWidget &dialog) {
        const auto &list = control<QTreeView>(dialog, u"treeView"_s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return list.model()->rowCount(list.rootIndex()) >= 3; }));
        QApplication::processEvents();
        EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
        for (int column = 0; column < list.model()->columnCount(); ++column) {
            for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row) {
                const QModelIndex cell = list.model()->index(row, column, list.rootIndex());
                EXPECT_GE(list.columnWidth(column), list.sizeHintForIndex(cell).width())
                    << cell.data().toString().toStdString();
            }
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    chooseMenu(u"mneFile"_s, u"mneFileOpen"_s);
}

TEST_F(LastPlace, aDocumentOfTheCommandLineIsStillSavedToItsFile)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    start(u"a.inv"_s);
    chooseFile(u"mneFileOpen"_s, writeFile(u"far/b.inv"_s, document(2)));
    frame().makeActive(*frame().openEditors().at(1));
    ASSERT_EQ(editor().windowTitle(), file);
    EXPECT_EQ(QDir::currentPath(), QDir::fromNativeSeparators(path(u"far"_s)));
    frame().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame(), patience));
    typeInto(2, 1, u"typed"_s);
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(readFile(path(u"a.inv"_s)).contains(",typed,"));
    EXPECT_FALSE(QFile::exists(path(u"far/a.inv"_s)));
}

TEST_F(LastPlace, aFileThatIsOpenedAgainIsWhereItWas)
{
    start();
    const QString a = writeFile(u"a.inv"_s, document(2));
    ASSERT_TRUE(open(a));
    const QRect place(120, 90, 333, 222);
    window().setGeometry(place);
    closeWindow();
    ASSERT_TRUE(open(writeFile(u"b.inv"_s, document(2))));
    EXPECT_NE(window().geometry(), place);
    ASSERT_TRUE(open(a));
    EXPECT_EQ(window().geometry(), place);
    ASSERT_TRUE(open(a)); // and beside it a second time
    EXPECT_NE(window().geometry().topLeft(), place.topLeft());
}

TEST_F(LastPlace, aPlaceOutsideTheAreaIsNotGivenBack)
{
    start();
    const QString a = writeFile(u"a.inv"_s, document(2));
    ASSERT_TRUE(open(a));
    window().setGeometry(frame().width() - 100, 50, 300, 200);
    closeWindow();
    frame().showNormal();
    frame().resize(500, 400);
    QApplication::processEvents();
    ASSERT_TRUE(open(a));
    EXPECT_TRUE(frame().centralWidget()->rect().contains(window().geometry().topLeft()));
}

TEST_F(LastPlace, aMaximisedWindowsFormerPlaceIsRemembered)
{
    start();
    const QString a = writeFile(u"a.inv"_s, document(2));
    ASSERT_TRUE(open(a));
    const QRect place(120, 90, 333, 222);
    window().setGeometry(place);
    window().showMaximized();
    closeWindow();
    frame().openEditors().first()->parentWidget()->showNormal();
    ASSERT_TRUE(open(a));
    EXPECT_FALSE(window().isMaximized());
    EXPECT_EQ(window().geometry(), place);
}

TEST_F(LastPlace, newWindowsAreMaximisedWhereTheLastWas)
{
    start();
    window().showMaximized();
    const QString a = writeFile(u"a.inv"_s, document(2));
    ASSERT_TRUE(open(a));
    EXPECT_TRUE(window().isMaximized());
    while (frame().activeEditor()) {
        closeWindow();
    }
    ASSERT_TRUE(open(a));
    EXPECT_TRUE(window().isMaximized());
    window().showNormal();
    closeWindow();
    ASSERT_TRUE(open(a));
    EXPECT_FALSE(window().isMaximized());
}
