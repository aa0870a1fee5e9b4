#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "storage/FileBackup.h"
#include "tests/support/FrameTest.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <poll.h>
#include <random>
#include <sys/resource.h>
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

/// Kills that come when the save is over are tried again, earlier; so often at most.
constexpr int maxTries = 20 * kills;

/// The part of the kills that wait until the file is being replaced: that is over too soon to be met by chance.
constexpr int everyWhich = 3;

} // namespace

class DeathInASave : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        frame().recovery().setInterval(std::chrono::hours(24)); // the saves alone are to write files
        before = document(rows);
        file = writeFile(u"a.inv"_s, before);
        ASSERT_TRUE(frame().documents().OpenPrFile(file));
        typeInto(2, 1, u"Renamed and a little longer than before"_s);
        after = QByteArray(before).replace(",Parameter 1,", ",Renamed and a little longer than before,");
    }

    /// Starts a process that saves the document, and that the system kills when a file of it gets longer than that.
    void startSaving(rlim_t longestFile = RLIM_INFINITY)
    {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        m_process = ::fork();
        if (m_process == 0) {
            ::alarm(600); // a message box would wait for ever
            const rlimit files{.rlim_cur = longestFile, .rlim_max = longestFile};
            const rlimit cores{.rlim_cur = 0, .rlim_max = 0};
            ::setrlimit(RLIMIT_FSIZE, &files);
            ::setrlimit(RLIMIT_CORE, &cores);
            ::signal(SIGXFSZ, SIG_DFL);
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

    /// Waits for the process's own death. False when it finished the save.
    bool awaitDeath()
    {
        const bool isWhole = heard() == 'e';
        kill();
        return !isWhole;
    }

    /// Waits until the process begins to replace the file, or until it has ended.
    void awaitReplacement() const
    {
        const QByteArray name = QFile::encodeName(file);
        struct stat info
        {
        };
        do {
            ::stat(name.constData(), &info);
        } while (info.st_size == before.size() && !hasNews());
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

    /// Whether the file is whole; where it is not, the old content must be in the backups. A version there is whole.
    bool expectOldOrNewContent()
    {
        const QList<QByteArray> kept = versions();
        EXPECT_TRUE(std::ranges::all_of(kept, [this](const QByteArray &version) { return version == before; }));
        const QByteArray left = readFile(file);
        const bool isWhole = left == before || left == after;
        EXPECT_TRUE(isWhole || kept.contains(before)) << "the earlier content is lost";
        return isWhole;
    }

    QString file;
    QByteArray before;
    QByteArray after;

private:
    /// Whether the process has told something that was not heard yet, or is dead.
    bool hasNews() const
    {
        pollfd news{.fd = m_news, .events = POLLIN, .revents = 0};
        return ::poll(&news, 1, 0) > 0;
    }
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
    int tries = 0;
    for (; inside < kills && tries < maxTries; ++tries) {
        startSaving();
        if (tries % everyWhich == 0) {
            awaitReplacement();
            ::usleep(std::uniform_int_distribution<useconds_t>(0, 500)(random));
            inside += kill() ? 1 : 0;
        } else {
            ::usleep(std::uniform_int_distribution<useconds_t>(0, useconds_t(duration))(random));
            const bool isInside = kill();
            inside += isInside ? 1 : 0;
            // How long a save takes changes with what else the machine has to do.
            duration = isInside ? duration + duration / 50 : duration - duration / 10;
        }
        torn += expectOldOrNewContent() ? 0 : 1;
        makeAsBefore();
    }
    std::printf("of %d kills %d fell into a save, %d left a part of the file\n", tries, inside, torn);
    EXPECT_EQ(inside, kills);
}

TEST_F(DeathInASave, inTheMiddleOfAFileLeavesTheOldContentInTheBackups)
{
    constexpr int deaths = 20;
    const QString longName(int(before.size()) / 2, u'x');
    grid().setText(2, 1, longName);
    after = QByteArray(before).replace(",Parameter 1,", "," + longName.toLatin1() + ',');
    int torn = 0;
    for (int i = 0; i < deaths; ++i) {
        startSaving(rlim_t(after.size() * i / deaths));
        EXPECT_TRUE(awaitDeath()) << i;
        torn += expectOldOrNewContent() ? 0 : 1;
        makeAsBefore();
    }
    EXPECT_GE(torn, deaths / 4);
    startSaving();
    EXPECT_FALSE(awaitDeath());
    EXPECT_EQ(readFile(file), after);
}
