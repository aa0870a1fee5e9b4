#include "tests/storage/RecoveryStores.h"

#include <QDirIterator>
#include <QSet>

#include <csignal>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

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
