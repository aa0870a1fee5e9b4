#include "app/services/Settings.h"
#include "runtime/SettingsFile.h"
#include "runtime/SettingsTurn.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <atomic>
#include <csignal>
#include <functional>
#include <random>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// In ms; half a minute is what Qt grants the dead. Storing itself takes some milliseconds.
constexpr qint64 heldUp = 20'000;

/// Two processes that use one settings store.
class SharedSettings : public testing::Test
{
protected:
    SharedSettings()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
        SettingsTurn::setLongestWait(std::chrono::milliseconds(patience));
        void *memory =
            ::mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        m_ready = new (memory) std::atomic<int>(0);
    }

    /// Another Tabrix, which waits until as many are ready and then runs program.
    pid_t start(const std::function<void()> &program, int together)
    {
        const pid_t process = ::fork();
        if (process == 0) {
            ::alarm(600); // only a program that hangs meets it
            ++*m_ready;
            while (*m_ready < together) { }
            program();
            ::_exit(0);
        }
        return process;
    }

    static void await(pid_t process)
    {
        int status = 0;
        ::waitpid(process, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }

    void runTogether(const std::function<void()> &first, const std::function<void()> &second)
    {
        *m_ready = 0;
        const pid_t one = start(first, 2);
        const pid_t other = start(second, 2);
        await(one);
        await(other);
    }

    QTemporaryDir m_folder;

    std::atomic<int> *m_ready; ///< shared by the processes
};

} // namespace

TEST_F(SharedSettings, keepTheRecentFilesOfBoth)
{
    for (int round = 0; round < 30; ++round) {
        const QString one = u"/one/%1.inv"_s.arg(round);
        const QString other = u"/other/%1.inv"_s.arg(round);
        runTogether([&] { StoreRecentFile(one); }, [&] { StoreRecentFile(other); });
        const QStringList newest = recentFiles().first(2);
        EXPECT_TRUE(newest.contains(one) && newest.contains(other)) << newest.join(u' ').toStdString();
    }
}

TEST_F(SharedSettings, keepTheFontOfOneAndTheWindowsOfTheOther)
{
    const auto chooseFonts = [] {
        for (int size = 1; size <= 20; ++size) {
            SaveUserFont(u"Font of one"_s, float(size), true, false);
        }
    };
    const auto hideColumns = [] {
        for (int i = 0; i < 20; ++i) {
            ListVisualState.fill(i % 2 != 0);
            SaveWindowSettings(1);
        }
    };
    for (int round = 0; round < 3; ++round) {
        SaveUserFont(u"Font before"_s, 60, false, true);
        SaveWindowSettings(0);
        runTogether(chooseFonts, hideColumns);
        UserFontSettings font;
        LoadUserFont(font.FontName, font.FontSize, font.FontItalic, font.FontBold);
        EXPECT_EQ(font, (UserFontSettings{u"Font of one"_s, 20, true, false}));
        qint16 state = 0;
        LoadWindowSettings(state);
        EXPECT_EQ(state, 1);
        EXPECT_TRUE(ListVisualState[0] && ListVisualState[12]);
    }
}

TEST_F(SharedSettings, areWholeAtEveryMomentForAReader)
{
    SaveUserFont(u"Font"_s, 9, true, false);
    const auto store = [] {
        for (int i = 0; i < 100; ++i) {
            StoreRecentFile(u"/a/%1.inv"_s.arg(i));
        }
    };
    const auto read = [] {
        for (int i = 0; i < 300; ++i) {
            UserFontSettings font;
            LoadUserFont(font.FontName, font.FontSize, font.FontItalic, font.FontBold);
            if (font != UserFontSettings{u"Font"_s, 9, true, false}) {
                ::_exit(1);
            }
        }
    };
    runTogether(store, read);
    EXPECT_EQ(recentFiles(), (QStringList{u"/a/99.inv"_s, u"/a/98.inv"_s, u"/a/97.inv"_s, u"/a/96.inv"_s}));
}

TEST_F(SharedSettings, surviveADeathWhileTheyAreWritten)
{
    std::mt19937 random(7);
    SaveUserFont(u"Font"_s, 9, true, false);
    for (int kill = 0; kill < 30; ++kill) {
        const auto store = [this] {
            for (int i = 0;; ++i) {
                StoreRecentFile(u"/dead/%1.inv"_s.arg(i));
                ++*m_ready;
            }
        };
        *m_ready = 0;
        const pid_t dying = start(store, 0);
        const int stored = std::uniform_int_distribution(0, 4)(random);
        while (*m_ready <= stored) { } // it counts itself as ready first
        ::usleep(std::uniform_int_distribution<useconds_t>(0, 3000)(random));
        ::kill(dying, SIGKILL);
        ::waitpid(dying, nullptr, 0);
        QElapsedTimer time;
        time.start();
        const QString mine = u"/alive/%1.inv"_s.arg(kill);
        StoreRecentFile(mine);
        EXPECT_LT(time.elapsed(), heldUp);
        EXPECT_EQ(recentFiles().value(0), mine);
        UserFontSettings font;
        LoadUserFont(font.FontName, font.FontSize, font.FontItalic, font.FontBold);
        EXPECT_EQ(font, (UserFontSettings{u"Font"_s, 9, true, false}));
    }
}

TEST_F(SharedSettings, areNotHeldUpByTheLocksOfTheDead)
{
    SaveUserFont(u"Font"_s, 9, true, false);
    const QString store = m_folder.filePath(u"Tabrix/Tabrix.conf"_s);
    ASSERT_TRUE(QFile::exists(store));
    for (const QString &lock : {store + u".lock"_s, store + u".turn"_s}) {
        QFile left(lock); // empty, as by one who died before he wrote his name into it
        ASSERT_TRUE(left.open(QFile::WriteOnly));
        left.close();
        QElapsedTimer time;
        time.start();
        StoreRecentFile(lock);
        EXPECT_LT(time.elapsed(), heldUp) << lock.toStdString();
        EXPECT_FALSE(QFile::exists(store + u".turn"_s)) << lock.toStdString();
        EXPECT_EQ(recentFiles().value(0), lock);
    }
}
