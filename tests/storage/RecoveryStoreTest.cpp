#include "storage/RecoveryStore.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <csignal>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

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

    static QByteArray contentOf(const RecoveryStore &store, int number)
    {
        const auto bytes = store.read(number);
        EXPECT_TRUE(bytes);
        return bytes.valueOr({});
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

namespace {

/// Lets no file of this process grow beyond that, as on a full disk.
class NoRoom
{
public:
    explicit NoRoom(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit narrow{bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &narrow);
    }
    ~NoRoom() { setrlimit(RLIMIT_FSIZE, &m_former); }
    Q_DISABLE_COPY_MOVE(NoRoom)

private:
    rlimit m_former{};
};

} // namespace

TEST_F(RecoveryStores, keepsTheEarlierCopyWhenTheDiskIsFull)
{
    RecoveryStore store(root());
    const int number = store.newNumber();
    ASSERT_TRUE(store.write(number, "earlier"));
    {
        const NoRoom full(1000);
        EXPECT_FALSE(store.write(number, QByteArray(100000, 'x')));
    }
    EXPECT_EQ(contentOf(store, number), "earlier");
    EXPECT_EQ(found(u"*.copy*"_s).size(), 1);
}

// Small contents are what buffers hide until it is too late.
TEST_F(RecoveryStores, takesNoSmallCopyForWrittenThatTheDiskRefused)
{
    RecoveryStore store(root());
    const int number = store.newNumber();
    ASSERT_TRUE(store.write(number, "earlier"));
    {
        const NoRoom full(0);
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

TEST_F(RecoveryStores, followNoLinks)
{
    QTemporaryDir elsewhere;
    for (const QString &name : {u"000001.copy"_s, u"000001.copy.XyZ"_s, u"thesis.txt"_s}) {
        QFile file(elsewhere.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    leaveBehind(u"20250101-1"_s, u"000001.copy"_s, "left");
    ASSERT_TRUE(QFile::link(elsewhere.path(), root() + u"/20250102-1"_s));
    ASSERT_TRUE(QFile::link(elsewhere.filePath(u"000001.copy"_s), root() + u"/20250101-1/000002.copy"_s));
    EXPECT_EQ(RecoveryStore(root()).takeOver().size(), 1);
    EXPECT_EQ(QDir(elsewhere.path()).entryList(QDir::Files).size(), 3);
    EXPECT_EQ(QFile::symLinkTarget(root() + u"/20250102-1"_s), elsewhere.path());
    EXPECT_EQ(QFile::symLinkTarget(root() + u"/20250101-1/000002.copy"_s), elsewhere.filePath(u"000001.copy"_s));
}

// One who died just after he had made the lock, before there was a name in it
TEST_F(RecoveryStores, makeNoLockThroughALink)
{
    const QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(u"made"_s);
    leaveBehind(u"20250101-1"_s, u"000001.copy"_s, "left");
    ASSERT_TRUE(QFile::link(target, root() + u"/20250101-1.lock"_s));
    RecoveryStore store(root());
    EXPECT_TRUE(store.takeOver().isEmpty());
    EXPECT_FALSE(store.lastTakeOver());
    EXPECT_FALSE(QFile::exists(target));
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

// Another program takes the copies over again and again, and dies at any moment.
TEST_F(RecoveryStores, leaveTheCopiesToTheNextStartWhenTheyDieWhileTakingThemOver)
{
    const QList<QByteArray> contents = {"first", "second", "third"};
    for (const QByteArray &content : contents) {
        leaveBehind(u"20250101-1"_s, u"00000%1.copy"_s.arg(contents.indexOf(content)), content);
    }
    std::mt19937 random(11);
    for (int kill = 0; kill < 60; ++kill) {
        const pid_t dying = ::fork();
        if (dying == 0) {
            for (;;) {
                RecoveryStore(root()).takeOver();
            }
        }
        ::usleep(std::uniform_int_distribution<useconds_t>(0, 20000)(random));
        ::kill(dying, SIGKILL);
        ::waitpid(dying, nullptr, 0);
        ASSERT_EQ(found(u"??????.copy"_s).size(), 3) << "kill " << kill;
    }
    RecoveryStore store(root());
    QList<QByteArray> left;
    for (const int number : store.takeOver()) {
        left << contentOf(store, number);
    }
    EXPECT_EQ(QSet<QByteArray>(left.begin(), left.end()), QSet<QByteArray>(contents.begin(), contents.end()));
    EXPECT_TRUE(store.lastTakeOver());
    EXPECT_EQ(QDir(root()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 2) << "its folder and its lock";
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

TEST_F(RecoveryStores, areForTheUserAlone)
{
    const mode_t former = ::umask(0);
    RecoveryStore store(m_folder.filePath(u"data/Tabrix/recovery"_s));
    ASSERT_TRUE(store.write(store.newNumber(), "one"));
    ::umask(former);
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    int entries = 0;
    QDirIterator all(m_folder.path(), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        EXPECT_FALSE(QFile::permissions(path) & others) << path.toStdString();
        ++entries;
    }
    EXPECT_EQ(entries, 6); // three folders above, its own, the lock, the copy
}
