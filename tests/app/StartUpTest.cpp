#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "tests/support/FrameTest.h"
#include "tests/support/ThisSystem.h"
#include "tests/support/UserPlaces.h"

#include <QDir>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

using namespace Qt::StringLiterals;

class StartUp : public FrameTest
{
protected:
    static QString setting(const QString &key) { return UserPlaces::settings().value(key).toString(); }
    static void store(const QString &key, const QString &value) { UserPlaces::settings().setValue(key, value); }
};

TEST_F(StartUp, showsOneUntitledDocumentWithOneRow)
{
    start();
    ASSERT_EQ(frame().openEditors().size(), 1);
    EXPECT_EQ(editor().windowTitle(), u"No Name"_s);
    EXPECT_EQ(editor().document().number(), 1);
    EXPECT_EQ(grid().rowCount(), 1);
    EXPECT_EQ(MachineInfos[1].Paramater, 1);
    EXPECT_EQ(control<QLabel>(frame(), u"lblPrcount"_s).text(), u"1"_s);
}

TEST_F(StartUp, opensTheCommandLineAsOneFileName)
{
    const QString file = writeFile(u"two words.inv"_s, document(3));
    start(file);
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(editor().windowTitle(), file);
    EXPECT_EQ(editor().document().number(), 2);
    EXPECT_EQ(grid().text(2, 3), u"Parameter 3"_s);
}

// It is placed before the frame is shown, when there is hardly any room.
TEST_F(StartUp, showsTheFileOfTheCommandLineInAWindowThatFitsTheFrame)
{
    start(writeFile(u"a.inv"_s, document(3)));
    const QWidget &window = *editor().parentWidget();
    const QSize area = window.parentWidget()->size();
    const QRect shown = window.geometry() & QRect(QPoint(), area);
    EXPECT_TRUE(window.isVisible());
    EXPECT_GE(shown.width(), std::min(window.sizeHint().width(), area.width() * 3 / 4));
    EXPECT_GE(shown.height(), std::min(window.sizeHint().height(), area.height() * 3 / 4));
}

TEST_F(StartUp, namesTheDocumentByTheFullPathOfARelativeName)
{
    const QString file = writeFile(u"a.inv"_s, document(3));
    ASSERT_TRUE(QDir().mkpath(path(u"below"_s)));
    for (const QString &name : {u"a.inv"_s, u"./a.inv"_s, u"below/../a.inv"_s}) {
        start(name);
        EXPECT_EQ(editor().windowTitle(), file) << name.toStdString();
        EXPECT_EQ(setting(u"Recent Files/RecentFile1"_s), file) << name.toStdString();
        EXPECT_EQ(setting(u"Recent Files/RecentFile2"_s), QString()) << name.toStdString();
    }
}

TEST_F(StartUp, followsALinkWhereTheSystemDoes)
{
    if (!ThisSystem::hasLinks()) {
        GTEST_SKIP() << "not everybody may make links on this system";
    }
    ASSERT_TRUE(QDir().mkpath(path(u"far/below"_s)));
    writeFile(u"far/a.inv"_s, document(3));
    ASSERT_TRUE(QFile::link(path(u"far/below"_s), path(u"link"_s)));
    start(u"link/../a.inv"_s);
    EXPECT_EQ(editor().windowTitle(), path(u"link/../a.inv"_s));
    EXPECT_EQ(grid().rowCount(), 3);
}

TEST_F(StartUp, namesAFileThatIsNotThereAsItWasTyped)
{
    ModalScript script;
    script.then([&](QWidget &box) {
        EXPECT_EQ(box.windowTitle(), u"b.inv"_s);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    start(u"b.inv"_s);
    EXPECT_EQ(script.asked(), 1);
}

TEST_F(StartUp, takesQuotesOnTheCommandLineAsPartOfTheName)
{
    const QString quoted = u'"' + writeFile(u"a.inv"_s, document(1)) + u'"';
    ModalScript script;
    script.then([&](QWidget &box) {
        EXPECT_EQ(box.windowTitle(), quoted);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    start(quoted);
    EXPECT_EQ(frame().openEditors().size(), 1);
    EXPECT_EQ(script.asked(), 1);
}

TEST_F(StartUp, opensMaximisedWhateverStateIsStored)
{
    for (const QString &state : {u"0"_s, u"1"_s, u"2"_s, u"77"_s}) {
        store(u"WindowInf/WindowState"_s, state);
        start();
        EXPECT_TRUE(frame().isMaximized()) << state.toStdString();
    }
}

TEST_F(StartUp, storesItsWindowStateWhenItEnds)
{
    start();
    EXPECT_TRUE(frame().close());
    EXPECT_EQ(setting(u"WindowInf/WindowState"_s), u"2"_s);
    EXPECT_EQ(setting(u"WindowInf/ListVisualState6"_s), u"True"_s);
    EXPECT_EQ(setting(u"WindowInf/ListVisualState0"_s), u"False"_s);
    start();
    frame().showNormal();
    EXPECT_TRUE(frame().close());
    EXPECT_EQ(setting(u"WindowInf/WindowState"_s), u"0"_s);
}

TEST_F(StartUp, appliesTheStoredFontToTheGrid)
{
    store(u"FontInf/FontSize"_s, u"17"_s);
    store(u"FontInf/FontBold"_s, u"True"_s);
    start();
    EXPECT_EQ(grid().gridFont().pointSizeF(), 17);
    EXPECT_TRUE(grid().gridFont().bold());
}

TEST_F(StartUp, listsTheStoredRecentFiles)
{
    store(u"Recent Files/RecentFile1"_s, u"/b.inv"_s);
    store(u"Recent Files/RecentFile2"_s, u"/a.inv"_s);
    start();
    EXPECT_EQ(menuCommand(u"mneFile"_s, u"mnuRecentFile(1)"_s).text(), u"/b.inv"_s);
    EXPECT_EQ(menuCommand(u"mneFile"_s, u"mnuRecentFile(2)"_s).text(), u"/a.inv"_s);
    EXPECT_TRUE(menuCommand(u"mneFile"_s, u"mnuRecentFile(0)"_s).isVisible());
    EXPECT_FALSE(menuCommand(u"mneFile"_s, u"mnuRecentFile(3)"_s).isVisible());
}

TEST_F(StartUp, captionsTheFrameInJapaneseForJapan)
{
    setCountryCode(81);
    start();
    EXPECT_EQ(LanguageBase, JapaneseBase);
    EXPECT_EQ(editor().windowTitle(), u"無題"_s);
    EXPECT_TRUE(frame().windowTitle().startsWith(u"ﾊﾟﾗﾒｰﾀﾌｧｲﾙ編集"_s));
    EXPECT_EQ(control<QLabel>(frame(), u"lblPrcountCaption"_s).text(), u"ﾊﾟﾗﾒｰﾀ数 :"_s);
    EXPECT_TRUE(HelpFilePath.endsWith(u"TABRIX.HLP"_s));
}

TEST_F(StartUp, namesTheEnglishHelpFileInEnglish)
{
    start();
    EXPECT_EQ(HelpFilePath, JoinPath(programFolder(), u"TABRIXE.HLP"_s));
}

TEST_F(StartUp, givesTheFirstDocumentRoomForItsVisibleColumns)
{
    start(writeFile(u"a.inv"_s, document(30)));
    const auto *window = editor().parentWidget();
    const auto *area = frame().centralWidget();
    EXPECT_LE(window->geometry().right(), area->width());
    EXPECT_LE(window->geometry().bottom(), area->height());
    EXPECT_GT(window->height(), area->height() / 2);
}
