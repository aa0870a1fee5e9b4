// Programs that save one file, and that are ended in the middle of it.

#include "storage/FileBackup.h"
#include "storage/SaveLock.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/QtPrinters.h"
#include "tests/windows/PeerProgram.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

class SavingPrograms : public DocumentFixture
{
protected:
    static QStringList saving(const QString &name, int rows, int times = 1)
    {
        return {u"save"_s, name, QString::number(rows), QString::number(times)};
    }
    /// The file of a document with so many rows.
    QByteArray contentWith(int rows) const
    {
        PeerProgram program(saving(path(u"other.inv"_s), rows));
        EXPECT_EQ(program.finish(), 0);
        return contentOf(path(u"other.inv"_s));
    }
    /// Microseconds that a save over the earlier content takes.
    qint64 measure(int rows)
    {
        PeerProgram program(saving(file(), rows));
        EXPECT_EQ(program.heard(), "saving");
        QElapsedTimer time;
        time.start();
        EXPECT_EQ(program.heard(), "saved");
        return time.nsecsElapsed() / 1000;
    }
    void makeAsBefore(const QByteArray &before) const
    {
        QDir(backupFolder(file())).removeRecursively();
        put(before);
    }
    QList<QByteArray> versions() const
    {
        const QDir folder(backupFolder(file()));
        QList<QByteArray> contents;
        for (const QString &name : folder.entryList({u"*.inv"_s}, QDir::Files, QDir::Name)) {
            contents << contentOf(folder.filePath(name));
        }
        return contents;
    }
    QString file() const { return path(u"document.inv"_s); }
};

} // namespace

TEST_F(SavingPrograms, leaveTheOldOrTheNewContentInTheFileOrTheOldOneInTheBackupsIfTheyAreKilled)
{
    constexpr int kills = 15;
    constexpr int maxTries = 10 * kills;
    constexpr int rows = 4000;
    const QByteArray before = contentWith(rows / 2);
    const QByteArray after = contentWith(rows);
    makeAsBefore(before);
    qint64 duration = measure(rows);
    std::mt19937 random(20240611);
    int inside = 0;
    for (int tries = 0; inside < kills && tries < maxTries; ++tries) {
        makeAsBefore(before);
        PeerProgram program(saving(file(), rows));
        ASSERT_EQ(program.heard(), "saving");
        QThread::usleep(std::uniform_int_distribution<unsigned long>(0, static_cast<unsigned long>(duration))(random));
        program.kill();
        const bool isInside = program.heard().isEmpty();
        inside += isInside ? 1 : 0;
        duration = isInside ? duration + duration / 50 : duration - duration / 10;
        const QList<QByteArray> kept = versions();
        EXPECT_TRUE(std::ranges::all_of(kept, [&](const QByteArray &version) { return version == before; }));
        const QByteArray left = contentOf(file());
        EXPECT_TRUE(left == before || left == after || kept.contains(before)) << "the earlier content is lost";
    }
    EXPECT_EQ(inside, kills);
}

TEST_F(SavingPrograms, waitForEachOther)
{
    constexpr int saves = 20; // of each
    const QList<QByteArray> documents = {contentWith(300), contentWith(700)};
    put(documents[0]);
    PeerProgram one(saving(file(), 300, saves));
    PeerProgram other(saving(file(), 700, saves));
    int looks = 0;
    while (one.isRunning() || other.isRunning()) {
        {
            const SaveLock lock(file());
            ASSERT_FALSE(lock.isTaken());
            ASSERT_TRUE(documents.contains(contentOf(file()))) << "look " << looks;
        }
        ++looks;
        one.look();
        other.look();
    }
    EXPECT_EQ(one.finish(), 0);
    EXPECT_EQ(other.finish(), 0);
    EXPECT_GT(looks, 2);
}

TEST_F(SavingPrograms, areNotHeldUpByOneThatDiedInASave)
{
    const QList<QByteArray> documents = {contentWith(300), contentWith(700)};
    put(documents[0]);
    for (unsigned long i = 0; i < 5; ++i) {
        PeerProgram dying(saving(file(), 700, 1000));
        ASSERT_EQ(dying.heard(), "saving");
        QThread::usleep(1'000 + 7'000 * i);
        dying.kill();
        PeerProgram next(saving(file(), 300));
        EXPECT_EQ(next.finish(), 0);
        EXPECT_EQ(contentOf(file()), documents[0]);
    }
}

// Windows takes them for one file, and so do the lock and the backups.
TEST_F(SavingPrograms, knowAFileByItsNameInOtherCase)
{
    put("content", u"document.inv"_s);
    for (const QString &name : {path(u"DOCUMENT.INV"_s), QDir::toNativeSeparators(path(u"Document.inv"_s))}) {
        EXPECT_EQ(backupFolder(name).toLower(), backupFolder(file()).toLower());
        const SaveLock mine(file());
        ASSERT_FALSE(mine.isTaken());
        EXPECT_TRUE(SaveLock(name).isTaken()) << name.toStdString();
    }
}
