#include "storage/RecoveryStore.h"

#include "tests/storage/RecoveryStores.h"
#include "tests/support/SmallDisk.h"

using namespace Qt::StringLiterals;

TEST_F(RecoveryStores, makesNothingBeforeTheFirstCopy)
{
    RecoveryStore store(root());
    EXPECT_TRUE(store.takeOver().isEmpty());
    EXPECT_FALSE(QDir(root()).exists());
}

TEST_F(RecoveryStores, givesBackWhatWasWrittenLast)
{
    RecoveryStore store(root());
    const int number = store.newNumber();
    EXPECT_TRUE(store.write(number, "one"));
    EXPECT_TRUE(store.write(number, "two"));
    EXPECT_EQ(contentOf(store, number), "two");
    EXPECT_EQ(found(u"*.copy"_s).size(), 1);
    store.remove(number);
    EXPECT_EQ(store.read(number), Failure::system(ENOENT));
}

TEST_F(RecoveryStores, leavesNothingOnceItsCopiesAreGone)
{
    {
        RecoveryStore store(root());
        const int number = store.newNumber();
        store.write(number, "one");
        store.remove(number);
    }
    EXPECT_TRUE(QDir(root()).isEmpty());
}

TEST_F(RecoveryStores, takesOverWhatCrashedInstancesLeftOldestFirst)
{
    leaveBehind(u"20250102-1"_s, u"000001.copy"_s, "third");
    leaveBehind(u"20250101-1"_s, u"000010.copy"_s, "second");
    leaveBehind(u"20250101-1"_s, u"000002.copy"_s, "first");
    leaveBehind(u"20250101-1"_s, u"000002.copy.XyZ"_s, "unfinished");
    RecoveryStore store(root());
    QList<QByteArray> contents;
    for (const int number : store.takeOver()) {
        contents << contentOf(store, number);
    }
    EXPECT_EQ(contents, QList<QByteArray>({"first", "second", "third"}));
    EXPECT_EQ(QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1); // its own
    EXPECT_EQ(found(u"*"_s).size(), 3 + 1); // and its lock
}

TEST_F(RecoveryStores, leavesTheCopiesOfTheLivingAlone)
{
    RecoveryStore living(root());
    const int number = living.newNumber();
    living.write(number, "mine");
    {
        RecoveryStore other(root());
        EXPECT_TRUE(other.takeOver().isEmpty());
    }
    EXPECT_EQ(contentOf(living, number), "mine");
}

TEST_F(RecoveryStores, doesNotTakeOverItsOwnCopies)
{
    RecoveryStore store(root());
    store.write(store.newNumber(), "mine");
    EXPECT_TRUE(store.takeOver().isEmpty());
}

TEST_F(RecoveryStores, leavesACopyThatIsStillThereToTheNextStart)
{
    {
        RecoveryStore store(root());
        store.write(store.newNumber(), "kept");
    }
    RecoveryStore next(root());
    const QList<int> numbers = next.takeOver();
    ASSERT_EQ(numbers.size(), 1);
    EXPECT_EQ(contentOf(next, numbers.first()), "kept");
}

TEST_F(RecoveryStores, setsAsideWhatIsOfNoUse)
{
    leaveBehind(u"20250101-1"_s, u"000001.copy"_s, "rubbish");
    {
        RecoveryStore store(root());
        store.setAside(store.takeOver().value(0));
    }
    EXPECT_EQ(found(u"*.damaged"_s).size(), 1);
    EXPECT_TRUE(RecoveryStore(root()).takeOver().isEmpty());
}

TEST_F(RecoveryStores, writesNothingWhereAFileIsInTheWay)
{
    QFile file(root());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    RecoveryStore store(root());
    EXPECT_FALSE(store.write(store.newNumber(), "one"));
    EXPECT_TRUE(store.takeOver().isEmpty());
}

TEST_F(RecoveryStores, goesOnWhenItsFolderWasDeleted)
{
    RecoveryStore store(root());
    store.write(store.newNumber(), "one");
    for (const QString &folder : QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QDir(root() + u'/' + folder).removeRecursively();
    }
    const int number = store.newNumber();
    EXPECT_TRUE(store.write(number, "two"));
    EXPECT_EQ(contentOf(store, number), "two");
}

TEST_F(RecoveryStores, keepsTheEarlierCopyWhenTheDiskIsFull)
{
    if (!SmallDisk::isPossible()) {
        GTEST_SKIP();
    }
    RecoveryStore store(root());
    const int number = store.newNumber();
    ASSERT_TRUE(store.write(number, "earlier"));
    {
        const SmallDisk full(1000);
        EXPECT_FALSE(store.write(number, QByteArray(100000, 'x')));
    }
    EXPECT_EQ(contentOf(store, number), "earlier");
    EXPECT_EQ(found(u"*.copy*"_s).size(), 1);
}

// Small contents are what buffers hide until it is too late.
TEST_F(RecoveryStores, takesNoSmallCopyForWrittenThatTheDiskRefused)
{
    if (!SmallDisk::isPossible()) {
        GTEST_SKIP();
    }
    RecoveryStore store(root());
    const int number = store.newNumber();
    ASSERT_TRUE(store.write(number, "earlier"));
    {
        const SmallDisk full(0);
        EXPECT_FALSE(store.write(number, "later"));
        EXPECT_FALSE(store.write(store.newNumber(), "another"));
    }
    EXPECT_EQ(contentOf(store, number), "earlier");
    EXPECT_EQ(found(u"*.copy*"_s).size(), 1);
    EXPECT_TRUE(store.write(number, "later"));
    EXPECT_EQ(contentOf(store, number), "later");
}

TEST_F(RecoveryStores, touchNothingThatIsNotTheirOwn)
{
    leaveBehind(u"notes"_s, u"000001.copy"_s, "a folder of the user's");
    leaveBehind(u"20250101-1"_s, u"000001.copy"_s, "left");
    leaveBehind(u"20250101-1"_s, u"mine.copy"_s, "a file of the user's");
    leaveBehind(u"20250101-1/20250101-2"_s, u"000001.copy"_s, "deeper");
    const QString mine = root() + u"/20250101-1/"_s;
    RecoveryStore store(root());
    EXPECT_EQ(store.takeOver().size(), 1);
    EXPECT_TRUE(QFile::exists(root() + u"/notes/000001.copy"_s));
    EXPECT_TRUE(QFile::exists(mine + u"mine.copy"_s));
    EXPECT_TRUE(QFile::exists(mine + u"20250101-2/000001.copy"_s));
    EXPECT_FALSE(QFile::exists(mine + u"000001.copy"_s));
    EXPECT_TRUE(store.lastTakeOver());
}

TEST_F(RecoveryStores, takeOverFromACrashedInstanceWhoseLockIsEmpty)
{
    leaveBehind(u"20250101-1"_s, u"000001.copy"_s, "left");
    QFile lock(root() + u"/20250101-1.lock"_s);
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.close();
    RecoveryStore store(root());
    const QList<int> numbers = store.takeOver();
    ASSERT_EQ(numbers.size(), 1);
    EXPECT_EQ(contentOf(store, numbers.first()), "left");
    EXPECT_FALSE(lock.exists());
}

TEST_F(RecoveryStores, removeTheLocksOfFoldersThatAreGone)
{
    ASSERT_TRUE(QDir().mkpath(root()));
    for (const QString &name : {u"20250101-1.lock"_s, u"other.lock"_s}) {
        QFile lock(root() + u'/' + name);
        ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    }
    RecoveryStore(root()).takeOver();
    EXPECT_EQ(QDir(root()).entryList(QDir::Files), QStringList{u"other.lock"_s});
}

TEST_F(RecoveryStores, keepTheLastDamagedCopies)
{
    for (int i = 0; i < 30; ++i) {
        leaveBehind(u"."_s, u"202501%1-1.damaged"_s.arg(i, 2, 10, QLatin1Char('0')), "rubbish");
    }
    leaveBehind(u"."_s, u"mine.damaged"_s, "not theirs");
    RecoveryStore(root()).takeOver();
    const QStringList kept = found(u"*.damaged"_s);
    EXPECT_EQ(kept.size(), 20 + 1);
    EXPECT_TRUE(kept.contains(u"20250129-1.damaged"_s) && !kept.contains(u"20250100-1.damaged"_s));
}
