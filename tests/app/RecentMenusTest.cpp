#include "app/services/Settings.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"

#include <QAction>
#include <QFile>

using namespace Qt::StringLiterals;

class RecentFiles : public FrameTest
{
protected:
    void SetUp() override { start(); }
    QString open(const QString &name)
    {
        const QString file = writeFile(name, document(2));
        EXPECT_TRUE(frame().documents().OpenPrFile(file));
        return file;
    }
    QAction &entry(int index) { return menuCommand(u"mneFile"_s, u"mnuRecentFile(%1)"_s.arg(index)); }
    QStringList shown()
    {
        QStringList files;
        for (int i = 1; i <= 4; ++i) {
            if (entry(i).isVisible()) {
                files << entry(i).text();
            }
        }
        return files;
    }
};

TEST_F(RecentFiles, showNeitherEntryNorSeparatorAtFirst)
{
    EXPECT_EQ(shown(), QStringList());
    EXPECT_FALSE(entry(0).isVisible());
}

TEST_F(RecentFiles, showTheLastFourNewestFirst)
{
    QStringList files;
    for (const QString &name : {u"a.inv"_s, u"b.inv"_s, u"c.inv"_s, u"d.inv"_s, u"e.inv"_s}) {
        files.prepend(open(name));
    }
    EXPECT_EQ(shown(), files.first(4));
    EXPECT_TRUE(entry(0).isVisible());
}

TEST_F(RecentFiles, keepTheirOrderWhenAListedFileIsOpenedAgain)
{
    const QString a = open(u"a.inv"_s);
    const QString b = open(u"b.inv"_s);
    open(u"a.inv"_s);
    EXPECT_EQ(shown(), QStringList({b, a}));
}

TEST_F(RecentFiles, distinguishCapitals)
{
    const QString upper = open(u"A.INV"_s);
    const QString lower = open(u"a.inv"_s);
    EXPECT_EQ(shown(), QStringList({lower, upper}));
}

TEST_F(RecentFiles, standInEveryWindowAndInTheFrame)
{
    const QString file = open(u"a.inv"_s);
    for (frmPrFile *window : frame().openEditors()) {
        frame().makeActive(*window);
        EXPECT_EQ(shown(), QStringList(file));
    }
    for (frmPrFile *window : frame().openEditors()) {
        window->parentWidget()->close();
    }
    EXPECT_EQ(shown(), QStringList(file));
}

TEST_F(RecentFiles, openWhenTheyAreChosen)
{
    const QString file = open(u"a.inv"_s);
    chooseMenu(u"mneFile"_s, u"mnuRecentFile(1)"_s);
    EXPECT_EQ(frame().openEditors().size(), 3);
    EXPECT_EQ(editor().windowTitle(), file);
}

TEST_F(RecentFiles, openFromTheFramesMenuToo)
{
    const QString file = open(u"a.inv"_s);
    for (frmPrFile *window : frame().openEditors()) {
        window->parentWidget()->close();
    }
    chooseMenu(u"mneFile"_s, u"mnuRecentFile(1)"_s);
    EXPECT_EQ(editor().windowTitle(), file);
}

TEST_F(RecentFiles, keepTheEntryOfAVanishedFile)
{
    const QString file = open(u"a.inv"_s);
    ASSERT_TRUE(QFile::remove(file));
    ModalScript script;
    script.thenEscape();
    chooseMenu(u"mneFile"_s, u"mnuRecentFile(1)"_s);
    EXPECT_EQ(shown(), QStringList(file));
    EXPECT_EQ(recentFiles(), QStringList(file));
}

TEST_F(RecentFiles, showAnAmpersandAndOpenTheRightFile)
{
    const QString file = open(u"a&b.inv"_s);
    EXPECT_EQ(entry(1).text(), QString(file).replace(u'&', u"&&"_s));
    chooseMenu(u"mneFile"_s, u"mnuRecentFile(1)"_s);
    EXPECT_EQ(editor().windowTitle(), file);
    EXPECT_EQ(recentFiles(), QStringList(file));
}

TEST_F(RecentFiles, areStillThereAfterARestart)
{
    const QString file = open(u"a.inv"_s);
    start();
    EXPECT_EQ(shown(), QStringList(file));
}

TEST_F(RecentFiles, keepTheirOrderWhenTheCommandLineNamesAListedOne)
{
    const QString a = open(u"a.inv"_s);
    const QString b = open(u"b.inv"_s);
    start(a);
    EXPECT_EQ(editor().windowTitle(), a);
    EXPECT_EQ(shown(), QStringList({b, a}));
    EXPECT_EQ(recentFiles(), QStringList({b, a}));
}

TEST_F(RecentFiles, keepTheirOrderWhenAnotherProgramHasStoredTheFileMeanwhile)
{
    const QString a = open(u"a.inv"_s);
    const QString b = writeFile(u"b.inv"_s, document(2));
    const QString c = path(u"c.inv"_s);
    StoreRecentFile(b);
    StoreRecentFile(c);
    open(u"b.inv"_s);
    EXPECT_EQ(shown(), QStringList({c, b, a}));
    EXPECT_EQ(recentFiles(), QStringList({c, b, a}));
}

TEST_F(RecentFiles, keepTheirOrderWhenADocumentIsSavedUnderANameThatAnotherProgramHasStored)
{
    const QString a = open(u"a.inv"_s);
    const QString b = path(u"b.inv"_s);
    StoreRecentFile(b);
    EXPECT_EQ(frame().documents().SavePrFile(editor(), b), SaveOutcome::Saved);
    EXPECT_EQ(shown(), QStringList({b, a}));
    EXPECT_EQ(recentFiles(), QStringList({b, a}));
}
