#include "tests/storage/KnownFiles.h"

#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "storage/FileBackup.h"
#include "storage/KnownFile.h"
#include "storage/SaveLock.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/ThisSystem.h"
#include "tests/support/UserPlaces.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

TEST_F(KnownFiles, areReplacedWithoutAQuestionWhenNobodyTouchedThem)
{
    expectNoQuestion();
    grid.rows[0][1] = u"b"_s;
    expectNoQuestion();
}

TEST_F(KnownFiles, areAskedAboutWhenOthersChangedThem)
{
    put("longer: " + opened);
    expectQuestion(changedQuestion);
    expectQuestion(changedQuestion); // No is not Yes the next time
}

TEST_F(KnownFiles, areAskedAboutWhenOthersChangedThemAfterASave)
{
    expectNoQuestion();
    DocFlags[docNo].changed = true;
    QDir(backupFolder(file)).removeRecursively();
    put(opened + ' ');
    expectQuestion(changedQuestion);
}

TEST_F(KnownFiles, areAskedAboutWhenSizeAndTimeAreTheSame)
{
    changeBehindTheTimes();
    expectQuestion(changedQuestion);
}

TEST_F(KnownFiles, areAskedAboutWhenAnotherFileTookTheirPlace)
{
    const QString other = put(opened + "0,2,,b,,1,-1,-1,0,0,0,0,", u"other.inv"_s);
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_TRUE(QFile::rename(other, file));
    expectQuestion(changedQuestion);
}

TEST_F(KnownFiles, areNotAskedAboutWhenOnlyTheTimeIsNew)
{
    ASSERT_TRUE(QFile::remove(file));
    put(opened);
    QFile touched(file);
    ASSERT_TRUE(touched.open(QIODevice::ReadWrite));
    ASSERT_TRUE(touched.setFileTime(QDateTime(QDate(2030, 1, 1), QTime()), QFileDevice::FileModificationTime));
    touched.close();
    expectNoQuestion();
}

TEST_F(KnownFiles, areSimplyWrittenAgainWhenOthersRemovedThem)
{
    ASSERT_TRUE(QFile::remove(file));
    expectNoQuestion();
    EXPECT_EQ(contentOf(file), opened);
}

TEST_F(KnownFiles, areReplacedOnYesWithTheOthersContentInTheBackups)
{
    put("theirs");
    host.answersYes = true;
    EXPECT_TRUE(saveGrid(file));
    EXPECT_EQ(host.questions, QStringList{changedQuestion});
    EXPECT_EQ(contentOf(file), opened);
    const QDir backups(backupFolder(file));
    ASSERT_EQ(backups.entryList(QDir::Files).size(), 1);
    EXPECT_EQ(contentOf(backups.filePath(backups.entryList(QDir::Files).first())), "theirs");
    host.questions.clear();
    expectNoQuestion();
}

TEST_F(KnownFiles, areAskedAboutAgainWhenOthersChangeThemDuringTheQuestion)
{
    put("theirs");
    host.answersYes = true;
    host.duringQuestion = [this] {
        if (host.questions.size() == 1) {
            put("theirs again");
        }
    };
    EXPECT_TRUE(saveGrid(file));
    EXPECT_EQ(host.questions, QStringList({changedQuestion, changedQuestion}));
    EXPECT_EQ(contentOf(file), opened);
}

TEST_F(KnownFiles, areNotAskedAboutTwiceWhenTheFileDialogAsked)
{
    put("theirs");
    EXPECT_FALSE(WritePrFile(file, {.docNo = docNo, .grid = grid, .mayReplace = true}, host));
    EXPECT_TRUE(host.questions.isEmpty());
    EXPECT_EQ(contentOf(file), opened);
}

TEST_F(KnownFiles, thatAppearedAreAskedAbout)
{
    file = put("theirs", u"new.inv"_s);
    expectQuestion(appearedQuestion);
}

TEST_F(KnownFiles, ofARecoveredDocumentAreTheOnesThatWereThereThen)
{
    put("what the crash left");
    documentOrigin(docNo).file = KnownFile::present(file);
    expectNoQuestion();
    put("theirs");
    DocFlags[docNo].changed = true;
    QDir(backupFolder(file)).removeRecursively();
    expectQuestion(changedQuestion);
}

TEST_F(KnownFiles, ofARecoveredDocumentMayHaveAppearedSince)
{
    ASSERT_TRUE(QFile::remove(file));
    documentOrigin(docNo).file = KnownFile::present(file);
    put("theirs");
    expectQuestion(appearedQuestion);
}

TEST_F(KnownFiles, areTheSameByALinkAndByAnotherPath)
{
    if (!ThisSystem::hasLinks()) {
        GTEST_SKIP() << "not everybody may make links on this system";
    }
    ASSERT_TRUE(QFile::link(file, path(u"link.inv"_s)));
    file = path(u"./link.inv"_s);
    expectNoQuestion();
    put("theirs");
    DocFlags[docNo].changed = true;
    QDir(backupFolder(file)).removeRecursively();
    expectQuestion(changedQuestion);
}

TEST_F(KnownFiles, thatAnotherWindowSavedAreNotAskedAbout)
{
    constexpr qint16 other = 2;
    growDocumentTables(other);
    ASSERT_FALSE(ReadPrFile(file, other, host));
    grid.rows[0][1] = u"saved by the other window"_s;
    ASSERT_FALSE(WritePrFile(file, {.docNo = other, .grid = grid}, host));
    grid.rows[0][1] = u"whichever is saved last wins"_s;
    expectNoQuestion();
    EXPECT_TRUE(contentOf(file).contains("whichever"));
}

TEST_F(KnownFiles, thatOthersChangedAreAskedAboutAlthoughAnotherWindowHasSeenThat)
{
    constexpr qint16 other = 2;
    growDocumentTables(other);
    put(QByteArray(opened).replace(",a,", ",theirs,"));
    ASSERT_FALSE(ReadPrFile(file, other, host));
    expectQuestion(changedQuestion);
}

TEST_F(KnownFiles, thatAnotherTabrixIsSavingAreNotTouched)
{
    {
        const SaveLock others(file);
        EXPECT_FALSE(saveGrid(file));
    }
    EXPECT_EQ(host.messages, QStringList{u"Another Tabrix is saving this file at this moment. Try again later."_s});
    EXPECT_EQ(contentOf(file), opened);
    EXPECT_TRUE(DocFlags[docNo].changed);
    EXPECT_FALSE(host.busy);
    expectNoQuestion();
}

TEST_F(KnownFiles, areSavedWhenAProgramWasKilledWhileItMadeItsLock)
{
    QStringList locks;
    const QDir folder(path(u"data/Tabrix/locks"_s));
    {
        const SaveLock others(file);
        locks = folder.entryList(QDir::Files);
    }
    ASSERT_EQ(locks.size(), 1);
    put({}, u"data/Tabrix/locks/"_s + locks.first()); // made, but not written yet
    expectNoQuestion();
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(KnownFiles, areNotLockedDuringAQuestion)
{
    put("theirs");
    bool isTaken = true;
    host.duringQuestion = [&] { isTaken = SaveLock(file).isTaken(); };
    EXPECT_FALSE(saveGrid(file));
    EXPECT_FALSE(isTaken);
}

TEST_F(KnownFiles, areNotLockedDuringTheQuestionAboutALostVersion)
{
    keepFromKeepingVersions();
    bool isTaken = true;
    host.duringQuestion = [&] { isTaken = SaveLock(file).isTaken(); };
    EXPECT_FALSE(saveGrid(file));
    EXPECT_FALSE(isTaken);
    EXPECT_EQ(host.questions.size(), 1);
    EXPECT_EQ(contentOf(file), opened);
}

TEST_F(KnownFiles, thatOthersChangeDuringTheQuestionAboutALostVersionAreAskedAboutAsWell)
{
    keepFromKeepingVersions();
    host.duringQuestion = [&] {
        host.answersYes = host.questions.size() == 1;
        put("theirs");
    };
    EXPECT_FALSE(saveGrid(file));
    ASSERT_EQ(host.questions.size(), 2);
    EXPECT_EQ(host.questions.last(), changedQuestion);
    EXPECT_EQ(contentOf(file), "theirs");
}

TEST_F(KnownFiles, thatOthersChangedAreAskedAboutApartFromALostVersion)
{
    keepFromKeepingVersions();
    put("theirs");
    host.duringQuestion = [&] { host.answersYes = host.questions.size() == 1; };
    EXPECT_FALSE(saveGrid(file));
    ASSERT_EQ(host.questions.size(), 2);
    EXPECT_EQ(host.questions.first(), changedQuestion);
    EXPECT_EQ(contentOf(file), "theirs");
}

TEST_F(KnownFiles, areSavedWithoutALockWhereNoneCanBeMade)
{
    ASSERT_TRUE(QFile::remove(file)); // no backup is to be made either
    UserPlaces::setDataHome(put("a file where the folder should be", u"blocked"_s));
    expectNoQuestion();
    EXPECT_EQ(contentOf(file), opened);
}

} // namespace
