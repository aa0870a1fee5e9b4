#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "storage/RecoveryStore.h"
#include "tests/support/FrameTest.h"
#include "tests/support/ThisSystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

#include <cerrno>

using namespace Qt::StringLiterals;

class Close : public FrameTest
{
protected:
    void SetUp() override { start(); }

    /// Opens a file of its own and changes it; returns its full path.
    QString openChanged(const QString &name)
    {
        const QString file = writeFile(name, document(2));
        EXPECT_TRUE(frame().documents().OpenPrFile(file));
        typeInto(2, 1, u"changed "_s + name);
        return file;
    }
    static QString prompt(const QString &title) { return title + u" is update.\nSave?"_s; }
};

TEST_F(Close, asksNothingWithoutChanges)
{
    const ModalScript script;
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_EQ(script.asked(), 0);
    EXPECT_TRUE(frame().openEditors().isEmpty());
    EXPECT_TRUE(DocFlags[1].free);
}

TEST_F(Close, asksUnderTheFramesCaptionWithTheExclamationIcon)
{
    const QString file = openChanged(u"a.inv"_s);
    ModalScript script;
    script.then([&](QWidget &window) {
        const auto &box = dynamic_cast<QMessageBox &>(window);
        EXPECT_EQ(box.text(), prompt(file));
        EXPECT_EQ(box.windowTitle(), u"Parameter File Editer"_s);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.buttons().size(), 3);
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_EQ(frame().openEditors().size(), 2);
    EXPECT_TRUE(DocFlags[2].changed);
}

TEST_F(Close, asksInJapanese)
{
    setCountryCode(81);
    start();
    const QString file = openChanged(u"a.inv"_s);
    ModalScript script;
    script.thenMessage(file + u" は編集されています。\n 変更を保存しますか？"_s, u"いいえ(&N)"_s);
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_EQ(frame().openEditors().size(), 1);
}

TEST_F(Close, savesOnYes)
{
    const QString file = openChanged(u"a.inv"_s);
    ModalScript script;
    script.thenMessage(prompt(file), u"&Yes"_s);
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_TRUE(readFile(file).contains("changed a.inv"));
    EXPECT_EQ(frame().openEditors().size(), 1);
    EXPECT_EQ(DocFlags[2], (DocFlag{.free = true, .changed = false}));
}

TEST_F(Close, losesTheChangesOnNo)
{
    const QString file = openChanged(u"a.inv"_s);
    ModalScript script;
    script.thenMessage(prompt(file), u"&No"_s);
    editor().parentWidget()->close();
    EXPECT_EQ(readFile(file), document(2));
    EXPECT_EQ(DocFlags[2], (DocFlag{.free = true, .changed = false}));
}

TEST_F(Close, asksForANameOnYesWhenUntitled)
{
    MachineInfos[1].Name = u"XT"_s;
    typeInto(2, 1, u"first"_s);
    ModalScript script;
    script.thenMessage(prompt(u"No Name"_s), u"&Yes"_s).thenFile(path(u"new.inv"_s));
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_TRUE(readFile(path(u"new.inv"_s)).contains(",first,"));
    EXPECT_TRUE(frame().openEditors().isEmpty());
}

TEST_F(Close, keepsForTheNextStartWhatYesDidNotSave)
{
    typeInto(2, 1, u"first"_s);
    ModalScript script;
    script.thenMessage(prompt(u"No Name"_s), u"&Yes"_s).thenEscape();
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_TRUE(frame().openEditors().isEmpty());
    start();
    EXPECT_EQ(grid().text(2, 1), u"first"_s);
}

/// Where no copy for the next start can be made.
class CloseWithoutRecovery : public Close
{
protected:
    CloseWithoutRecovery()
    {
        EXPECT_TRUE(QDir(RecoveryStore::defaultRoot()).removeRecursively());
        QFile inTheWay(RecoveryStore::defaultRoot());
        EXPECT_TRUE(QDir().mkpath(QFileInfo(inTheWay).path()) && inTheWay.open(QIODevice::WriteOnly));
    }
    ~CloseWithoutRecovery() override { QFile::remove(RecoveryStore::defaultRoot()); }

    static QString notKept()
    {
        return u"The changes could neither be saved nor safely kept for the next start. The window stays open so that "
               "they are not lost."_s;
    }
    static void failToSave(ModalScript &script)
    {
        script.then([](QWidget &window) {
            EXPECT_EQ(dynamic_cast<QMessageBox &>(window).text(), ThisSystem::words(EISDIR));
            QTest::keyClick(&window, Qt::Key_Return);
        });
    }
    QString openWithoutAFile(const QString &name)
    {
        const QString file = openChanged(name);
        EXPECT_TRUE(QFile::remove(file) && QDir().mkdir(file));
        return file;
    }
};

TEST_F(CloseWithoutRecovery, staysOpenWhenSavingFails)
{
    const QString file = openWithoutAFile(u"a.inv"_s);
    const int number = docNo();
    ModalScript script;
    script.thenMessage(prompt(file), u"&Yes"_s);
    failToSave(script);
    script.thenMessage(notKept(), u"OK"_s);
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(grid().text(2, 1), u"changed a.inv"_s);
    EXPECT_EQ(DocFlags[number], (DocFlag{.free = false, .changed = true}));
}

TEST_F(CloseWithoutRecovery, staysOpenWhenNoNameIsGiven)
{
    typeInto(2, 1, u"first"_s);
    ModalScript script;
    script.thenMessage(prompt(u"No Name"_s), u"&Yes"_s).thenEscape().thenMessage(notKept(), u"OK"_s);
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    ASSERT_EQ(frame().openEditors().size(), 1);
    EXPECT_EQ(grid().text(2, 1), u"first"_s);
    EXPECT_TRUE(DocFlags[1].changed);
}

TEST_F(CloseWithoutRecovery, stopsTheExit)
{
    const QString a = openWithoutAFile(u"a.inv"_s);
    openChanged(u"b.inv"_s);
    ModalScript script;
    script.thenMessage(prompt(a), u"&Yes"_s);
    failToSave(script);
    script.thenMessage(notKept(), u"OK"_s);
    chooseMenu(u"mneFile"_s, u"mneFileExit"_s);
    EXPECT_TRUE(frame().isVisible());
    EXPECT_EQ(frame().openEditors().size(), 2);
}

TEST_F(CloseWithoutRecovery, goesOnNo)
{
    const QString file = openWithoutAFile(u"a.inv"_s);
    ModalScript script;
    script.thenMessage(prompt(file), u"&No"_s);
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_EQ(frame().openEditors().size(), 1);
}

TEST_F(Close, savesTheWindowThatIsAskedAboutAndNoOther)
{
    const QString a = openChanged(u"a.inv"_s);
    frmPrFile *first = &editor();
    const QString b = openChanged(u"b.inv"_s);
    ASSERT_NE(first, &editor());
    ModalScript script;
    script.thenMessage(prompt(a), u"&Yes"_s);
    first->parentWidget()->close();
    EXPECT_TRUE(readFile(a).contains("changed a.inv"));
    EXPECT_EQ(readFile(b), document(2));
}

TEST_F(Close, handlesAFileNameWithThePlaceholder)
{
    if (!ThisSystem::allowsBarsInNames()) {
        GTEST_SKIP() << "no file can be called so on this system";
    }
    const QString file = openChanged(u"|1.inv"_s);
    ModalScript script;
    script.thenMessage(prompt(file), u"&No"_s);
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
}

TEST_F(Close, returnsTheFramesMenusWithTheLastWindow)
{
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(2))));
    EXPECT_EQ(frame().menuBar()->actions().size(), 5);
    editor().parentWidget()->close();
    EXPECT_EQ(frame().menuBar()->actions().size(), 5);
    EXPECT_TRUE(toolButton(u"ssrbnSave"_s).isEnabled());
    editor().parentWidget()->close();
    EXPECT_EQ(frame().menuBar()->actions().size(), 4);
    EXPECT_FALSE(toolButton(u"ssrbnSave"_s).isEnabled());
    chooseMenu(u"mneFile"_s, u"mneFileExit"_s);
    EXPECT_FALSE(frame().isVisible());
}

enum class Reply { Yes, No, Cancel };

class ExitWithThreeChangedDocuments : public Close, public testing::WithParamInterface<std::tuple<Reply, Reply, Reply>>
{
};

TEST_P(ExitWithThreeChangedDocuments, savesDiscardsOrStopsAsAnswered)
{
    const QList<Reply> replies{std::get<0>(GetParam()), std::get<1>(GetParam()), std::get<2>(GetParam())};
    QStringList files;
    for (const QString &name : {u"a.inv"_s, u"b.inv"_s, u"c.inv"_s}) {
        files << openChanged(name);
    }
    const int first = int(replies.indexOf(Reply::Cancel));
    const int answered = first < 0 ? 3 : first + 1;
    ModalScript script;
    for (int i = 0; i < answered; ++i) {
        const QString buttons[] = {u"&Yes"_s, u"&No"_s, u"CANCEL"_s};
        script.thenMessage(prompt(files[i]), buttons[int(replies[i])]);
    }
    chooseMenu(u"mneFile"_s, u"mneFileExit"_s);

    EXPECT_EQ(frame().isVisible(), first >= 0);
    EXPECT_EQ(frame().openEditors().size(), first < 0 ? 0 : 3 - first);
    for (int i = 0; i < 3; ++i) {
        const bool saved = i < answered && replies[i] == Reply::Yes;
        EXPECT_EQ(readFile(files[i]).contains("changed"), saved) << i;
        EXPECT_EQ(DocFlags[i + 2].changed, first >= 0 && i >= first) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Replies, ExitWithThreeChangedDocuments,
    testing::Combine(testing::Values(Reply::Yes, Reply::No, Reply::Cancel),
        testing::Values(Reply::Yes, Reply::No, Reply::Cancel), testing::Values(Reply::Yes, Reply::No, Reply::Cancel)));

TEST_F(Close, activatesTheWindowThatWasUsedLastBefore)
{
    for (const QString &name : {u"a.inv"_s, u"b.inv"_s, u"c.inv"_s}) {
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(name, document(2))));
    }
    frame().makeActive(*frame().openEditors().at(1));
    frame().makeActive(*frame().openEditors().at(3));
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_EQ(editor().windowTitle(), path(u"a.inv"_s));
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_EQ(editor().windowTitle(), path(u"b.inv"_s));
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_EQ(editor().windowTitle(), u"No Name"_s);
}
