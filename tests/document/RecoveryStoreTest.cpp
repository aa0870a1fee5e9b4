#include "document/RecoveryStore.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

class RecoveryStores : public testing::Test
{
protected:
    QString root() const { return m_folder.filePath(u"recovery"_s); }
    /// Every entry below the root that matches, as a path from there.
    QStringList found(const QString &pattern) const
    {
        QStringList paths = QDir(root()).entryList({pattern}, QDir::Files);
        for (const QString &folder : QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            for (const QString &name : QDir(root() + u'/' + folder).entryList({pattern}, QDir::Files)) {
                paths << folder + u'/' + name;
            }
        }
        return paths;
    }
    /// What a program that was killed leaves behind.
    void leaveBehind(const QString &folder, const QString &name, const QByteArray &bytes) const
    {
        ASSERT_TRUE(QDir().mkpath(root() + u'/' + folder));
        QFile file(root() + u'/' + folder + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir m_folder;
};

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
    EXPECT_EQ(store.read(number), "two");
    EXPECT_EQ(found(u"*.copy"_s).size(), 1);
    store.remove(number);
    EXPECT_TRUE(store.read(number).isEmpty());
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

TEST_F(RecoveryStores, takesOverWhatTheDeadLeftOldestFirst)
{
    leaveBehind(u"20250102-1"_s, u"000001.copy"_s, "third");
    leaveBehind(u"20250101-1"_s, u"000010.copy"_s, "second");
    leaveBehind(u"20250101-1"_s, u"000002.copy"_s, "first");
    leaveBehind(u"20250101-1"_s, u"000002.copy.XyZ"_s, "unfinished");
    RecoveryStore store(root());
    QList<QByteArray> contents;
    for (const int number : store.takeOver()) {
        contents << store.read(number);
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
    EXPECT_EQ(living.read(number), "mine");
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
    EXPECT_EQ(next.read(numbers.first()), "kept");
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
    EXPECT_EQ(store.read(number), "two");
}

// A limit on the size of files makes the disk as good as full.
TEST_F(RecoveryStores, keepsTheEarlierCopyWhenTheDiskIsFull)
{
    RecoveryStore store(root());
    const int number = store.newNumber();
    ASSERT_TRUE(store.write(number, "earlier"));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit narrow{1000, former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &narrow);
    const bool written = store.write(number, QByteArray(100000, 'x'));
    setrlimit(RLIMIT_FSIZE, &former);
    EXPECT_FALSE(written);
    EXPECT_EQ(store.read(number), "earlier");
    EXPECT_EQ(found(u"*.copy*"_s).size(), 1);
}
