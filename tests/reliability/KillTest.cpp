#include "document/FileBackup.h"
#include "editor/frmPrFile.h"
#include "tests/support/FrameTest.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <csignal>
#include <poll.h>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int kills = 40; // each costs some ten times as much
constexpr int rows = 4000;
#else
constexpr int kills = 200;
constexpr int rows = 8000;
#endif

/// The part of the kills that wait until the file is being replaced: that is over too soon to be met by chance.
constexpr int everyWhich = 3;

} // namespace

class DeathInASave : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        before = document(rows);
        file = writeFile(u"a.inv"_s, before);
        ASSERT_TRUE(frame().documents().OpenPrFile(file));
        typeInto(2, 1, u"Renamed and a little longer than before"_s);
        after = QByteArray(before).replace(",Parameter 1,", ",Renamed and a little longer than before,");
    }

    /// Starts a process that saves the document.
    void startSaving()
    {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        m_process = ::fork();
        if (m_process == 0) {
            ::alarm(60); // a message box would wait for ever
            frame().setUpdatesEnabled(false); // a forked process lacks the threads that paint
            tell(ends[1], 'b');
            frame().documents().SavePrFile(editor(), file);
            tell(ends[1], 'e');
            ::_exit(0);
        }
        ::close(ends[1]);
        m_news = ends[0];
        ASSERT_EQ(heard(), 'b');
    }

    /// Ends the process and returns whether it was still saving.
    bool kill()
    {
        ::kill(m_process, SIGKILL);
        int status = 0;
        ::waitpid(m_process, &status, 0);
        const bool isWhole = heard() == 'e';
        ::close(m_news);
        return !isWhole;
    }

    /// Microseconds that a save takes.
    qint64 measure()
    {
        startSaving();
        QElapsedTimer time;
        time.start();
        EXPECT_EQ(heard(), 'e');
        const qint64 duration = time.nsecsElapsed() / 1000;
        kill();
        EXPECT_EQ(readFile(file), after);
        return duration;
    }

    /// Waits until the process begins to replace the file, or until it has ended.
    void awaitReplacement(qint64 longest)
    {
        QElapsedTimer time;
        time.start();
        const QByteArray name = QFile::encodeName(file);
        struct stat info
        {
        };
        do {
            ::stat(name.constData(), &info);
        } while (info.st_size == before.size() && time.nsecsElapsed() / 1000 < longest);
    }

    void makeAsBefore()
    {
        QDir(backupFolder(file)).removeRecursively();
        writeFile(u"a.inv"_s, before);
    }

    QList<QByteArray> versions()
    {
        const QDir folder(backupFolder(file));
        QList<QByteArray> contents;
        for (const QString &name : folder.entryList({u"*.inv"_s}, QDir::Files, QDir::Name)) {
            contents << readFile(folder.filePath(name));
        }
        return contents;
    }

    QString file;
    QByteArray before;
    QByteArray after;

private:
    static void tell(int pipe, char news) { [[maybe_unused]] const auto written = ::write(pipe, &news, 1); }
    /// What the process tells next; 0 when it is dead.
    char heard() const
    {
        char news = 0;
        return ::read(m_news, &news, 1) == 1 ? news : '\0';
    }

    pid_t m_process = -1;
    int m_news = -1;
};

TEST_F(DeathInASave, leavesTheOldOrTheNewContentInTheFileOrTheOldOneInTheBackups)
{
    std::mt19937 random(20240611);
    qint64 duration = 0;
    for (int i = 0; i < 3; ++i) {
        duration = std::max(duration, measure());
        makeAsBefore();
    }
    int inside = 0;
    int torn = 0;
    for (int i = 0; i < kills; ++i) {
        startSaving();
        if (i % everyWhich == 0) {
            awaitReplacement(10 * duration);
            ::usleep(std::uniform_int_distribution<useconds_t>(0, 500)(random));
        } else {
            ::usleep(std::uniform_int_distribution<useconds_t>(0, useconds_t(duration))(random));
        }
        inside += kill() ? 1 : 0;
        const QByteArray left = readFile(file);
        const QList<QByteArray> kept = versions();
        for (const QByteArray &version : kept) {
            ASSERT_TRUE(version == before) << "a version is not whole, kill " << i;
        }
        if (left != before && left != after) {
            ++torn;
            ASSERT_TRUE(kept.contains(before)) << "the earlier content is lost, kill " << i;
        }
        makeAsBefore();
    }
    RecordProperty("kills", kills);
    RecordProperty("inside", inside);
    RecordProperty("torn", torn);
    std::printf("a save takes %lld us; of %d kills %d fell into a save, %d left a part of the file\n",
        static_cast<long long>(duration), kills, inside, torn);
    EXPECT_GE(inside, kills / 2);
    EXPECT_GE(torn, 1);
}
