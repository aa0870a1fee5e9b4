#include "app/services/Settings.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/reliability/FaultyDisk.h"
#include "tests/support/FrameTest.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QSettings>
#include <QTest>

#include <ostream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const UserFontSettings defaultFont = {u"System"_s, 12, false, false};

/// A settings file that no Tabrix has written so.
struct Damage
{
    const char *name;
    QByteArray bytes;
    UserFontSettings font = defaultFont;
};

void PrintTo(const Damage &damage, std::ostream *out)
{
    *out << damage.name;
}

/// Each column's state, so that a text of that kind stands for all thirteen.
QByteArray columns(const QByteArray &text)
{
    QByteArray lines = "[WindowInf]\n";
    for (int i = 0; i < 13; ++i) {
        lines += "ListVisualState" + QByteArray::number(i) + '=' + text + '\n';
    }
    return lines;
}

const Damage damages[] = {
    {"Empty", ""},
    {"Noise", QByteArray("\0\xff\xfe[\n=\x80\n[]]\n\n==\n\\x\n", 20)},
    {"CutInAKey", "[FontInf]\nFontNa"},
    {"CutInAnEscape", "[FontInf]\nFontName=\\x"},
    {"OtherProgram", "<?xml version=\"1.0\"?>\n<settings><font/></settings>\n"},
    {"OneLongLine", QByteArray(1000000, '[')},
    {"NoBooleans", "[FontInf]\nFontItalic=perhaps\nFontBold=\xe3\x81\x84\n" + columns("neither")},
    {"NoNumbers", "[FontInf]\nFontSize=large\n[WindowInf]\nWindowState=wide\n"},
    {"OtherTypes", "[FontInf]\nFontName=@ByteArray(\\0)\nFontSize=@Rect(1 2 3 4)\nFontBold=@Invalid()\n",
        {QString(1, u'\0'), 12, false, false}},
    {"LongFontName", "[FontInf]\nFontName=" + QByteArray(10000, 'W') + "\n", {QString(10000, u'W'), 12, false, false}},
    {"FontNameOfSpecials", "[FontInf]\nFontName=\"a,b;<b>&%1[*]/\\\\..\"\n",
        {u"a,b;<b>&%1[*]/\\.."_s, 12, false, false}},
    {"HugeFont", "[FontInf]\nFontSize=1E+30\n", {u"System"_s, 1e30F, false, false}},
    {"NegativeFont", "[FontInf]\nFontSize=-7\n", {u"System"_s, -7, false, false}},
    {"FontOfNoSize", "[FontInf]\nFontSize=0\n", {u"System"_s, 0, false, false}},
    {"ManyDigits", "[FontInf]\nFontSize=" + QByteArray(10000, '9') + "\n"},
    {"WindowStateBeyondAll", "[WindowInf]\nWindowState=99999999999999999999\n"},
    {"NegativeWindowState", "[WindowInf]\nWindowState=-32768\n"},
};

class SettingsFault : public FrameTest
{
protected:
    SettingsFault() { QDir().mkpath(folder()); }
    ~SettingsFault() override
    {
        stop();
        QFile::setPermissions(folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QDir(folder()).removeRecursively();
    }

    QString storeFile() const { return m_storeFile; }
    QString folder() const { return QFileInfo(m_storeFile).path(); }

    void store(const QByteArray &bytes)
    {
        QFile file(storeFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    /// Uses the program as users do, without a message from it.
    void expectUsable()
    {
        const ModalScript noMessages;
        const QString file = writeFile(u"a.inv"_s, document(3));
        ASSERT_TRUE(frame().documents().OpenPrFile(file));
        EXPECT_FALSE(frame().grab().isNull());
        typeInto(2, 1, u"Typed"_s);
        chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
        EXPECT_TRUE(readFile(file).contains(",Typed,"));
        EXPECT_TRUE(frame().close());
        EXPECT_EQ(noMessages.asked(), 0);
    }

private:
    QString m_storeFile = QSettings(QSettings::NativeFormat, QSettings::UserScope, u"Tabrix"_s, u"Tabrix"_s).fileName();
};

class DamagedSettings : public SettingsFault, public testing::WithParamInterface<Damage>
{
};

} // namespace

TEST_P(DamagedSettings, startTheProgramWithDefaults)
{
    store(GetParam().bytes);
    start();
    EXPECT_EQ(UserFont, GetParam().font);
    EXPECT_TRUE(frame().isMaximized());
    EXPECT_EQ(frame().screen()->availableGeometry().contains(frame().geometry()), true);
    const QList<int> hidden = {7, 8, 11, 13};
    for (int column = 1; column <= 13; ++column) {
        EXPECT_EQ(grid().isColumnHidden(column - 1), hidden.contains(column)) << column;
    }
    expectUsable();
}

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedSettings, testing::ValuesIn(damages), [](const auto &test) { return std::string(test.param.name); });

TEST_F(SettingsFault, aFileThatCannotBeWrittenIsLeftAsItIs)
{
    const QByteArray bytes = "[FontInf]\nFontName=Mine\n";
    store(bytes);
    ASSERT_TRUE(QFile::setPermissions(storeFile(), QFile::ReadOwner));
    ASSERT_TRUE(QFile::setPermissions(folder(), QFile::ReadOwner | QFile::ExeOwner));
    start();
    EXPECT_EQ(UserFont.FontName, u"Mine"_s);
    expectUsable();
    EXPECT_EQ(readFile(storeFile()), bytes);
}

TEST_F(SettingsFault, aFileThatCannotBeReadGivesDefaults)
{
    store("[FontInf]\nFontName=Mine\n");
    ASSERT_TRUE(QFile::setPermissions(storeFile(), {}));
    ASSERT_TRUE(QFile::setPermissions(folder(), QFile::ReadOwner | QFile::ExeOwner));
    start();
    EXPECT_EQ(UserFont, defaultFont);
    expectUsable();
}

TEST_F(SettingsFault, aFileOfThreeGigabytesGivesDefaultsAndIsLeftAsItIs)
{
    constexpr qint64 size = qint64(3) << 30;
    store("[FontInf]\nFontName=Mine\n");
    ASSERT_TRUE(QFile::resize(storeFile(), size)); // without a block on the disk
    start();
    EXPECT_EQ(UserFont, defaultFont);
    expectUsable();
    EXPECT_EQ(QFileInfo(storeFile()).size(), size);
}

TEST_F(SettingsFault, aPipeInTheFilesPlaceGivesDefaultsAndIsNotWaitedFor)
{
    QFile::remove(storeFile());
    ASSERT_EQ(::mkfifo(QFile::encodeName(storeFile()).constData(), 0600), 0);
    start();
    EXPECT_EQ(UserFont, defaultFont);
    expectUsable();
}

TEST_F(SettingsFault, aFolderInTheFilesPlaceGivesDefaults)
{
    QFile::remove(storeFile());
    ASSERT_TRUE(QDir().mkpath(storeFile()));
    start();
    EXPECT_EQ(UserFont, defaultFont);
    expectUsable();
    EXPECT_TRUE(QFileInfo(storeFile()).isDir());
}

TEST_F(SettingsFault, aFileInTheFoldersPlaceGivesDefaults)
{
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    QFile file(folder());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    start();
    EXPECT_EQ(UserFont, defaultFont);
    expectUsable();
    QFile::remove(folder());
}

TEST_F(SettingsFault, onAFullDiskTheEarlierSettingsStay)
{
    SaveUserFont(u"Mine"_s, 9, true, false);
    const QByteArray earlier = readFile(storeFile());
    // Without any room, with room for what there is, and for a part of what is to be added
    for (const qsizetype room : {qsizetype(0), earlier.size(), earlier.size() + 10}) {
        const FaultyDisk::SizeLimit full{quint64(room)};
        SaveUserFont(u"A font with a longer name"_s, 10, false, false);
        StoreRecentFile(u"/a file with a longer name.inv"_s);
        EXPECT_EQ(readFile(storeFile()), earlier) << room;
    }
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files), QStringList{QFileInfo(storeFile()).fileName()});
    StoreRecentFile(u"/b.inv"_s);
    EXPECT_EQ(recentFiles(), QStringList{u"/b.inv"_s});
    UserFontSettings font;
    LoadUserFont(font.FontName, font.FontSize, font.FontItalic, font.FontBold);
    EXPECT_EQ(font, (UserFontSettings{u"Mine"_s, 9, true, false}));
}

TEST_F(SettingsFault, onADiskWithoutAFreePageTheEarlierSettingsStay)
{
    if (FaultyDisk::smallDisk().isEmpty()) {
        GTEST_SKIP() << "this system lets tests mount no disk; the size limit stands in for the full disk";
    }
    const QString former = QFileInfo(folder()).path();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, FaultyDisk::smallDisk());
    SaveUserFont(u"Mine"_s, 9, true, false);
    const QString store = FaultyDisk::smallDisk() + u"/Tabrix/Tabrix.conf"_s;
    const QByteArray earlier = readFile(store);
    {
        const FaultyDisk::Filling full;
        StoreRecentFile(u"/a.inv"_s);
        EXPECT_EQ(readFile(store), earlier);
    }
    StoreRecentFile(u"/b.inv"_s);
    EXPECT_EQ(recentFiles(), QStringList{u"/b.inv"_s});
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, former);
    QDir(FaultyDisk::smallDisk() + u"/Tabrix"_s).removeRecursively();
}

// Where files can be made but not removed, the locks of the toolkit stay and are waited for without end.
TEST_F(SettingsFault, locksThatCannotBeRemovedHoldNobodyUp)
{
    SaveUserFont(u"Mine"_s, 9, true, false);
    QLockFile own(storeFile() + u".lock"_s);
    QLockFile turn(storeFile() + u".turn"_s);
    ASSERT_TRUE(own.tryLock() && turn.tryLock());
    for (const QFile::Permissions rights :
        {QFile::ReadOwner | QFile::ExeOwner, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner}) {
        ASSERT_TRUE(QFile::setPermissions(folder(), rights));
        const pid_t process = ::fork();
        if (process == 0) {
            ::alarm(30); // one wait of two seconds ends before; twenty do not, nor does one without end
            for (int i = 0; i < 20; ++i) {
                StoreRecentFile(u"/%1.inv"_s.arg(i));
            }
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(process, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    EXPECT_EQ(recentFiles().value(0), u"/19.inv"_s) << "the second folder takes them all the same";
}

TEST_F(SettingsFault, settingsAreForTheUserAloneFromTheirCreation)
{
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    const mode_t former = ::umask(0);
    SaveUserFont(u"Mine"_s, 9, true, false);
    ::umask(former);
    EXPECT_FALSE(QFile::permissions(folder()) & others);
    EXPECT_FALSE(QFile::permissions(storeFile()) & others);
    ASSERT_TRUE(QFile::setPermissions(folder(), QFile::permissions(folder()) | others));
    ASSERT_TRUE(QFile::setPermissions(storeFile(), QFile::permissions(storeFile()) | others));
    start();
    EXPECT_FALSE(QFile::permissions(folder()) & others) << "those of an earlier version, too";
    EXPECT_FALSE(QFile::permissions(storeFile()) & others);
}

TEST_F(SettingsFault, aLinkToTheSettingsStays)
{
    const QString real = path(u"kept elsewhere.conf"_s);
    store("[FontInf]\nFontName=Mine\n");
    ASSERT_TRUE(QFile::rename(storeFile(), real));
    ASSERT_TRUE(QFile::link(real, storeFile()));
    StoreRecentFile(u"/a.inv"_s);
    EXPECT_EQ(QFile::symLinkTarget(storeFile()), real);
    EXPECT_TRUE(readFile(real).contains("/a.inv") && readFile(real).contains("Mine"));
}

TEST_F(SettingsFault, aStoreBeyondAllSizeGivesDefaultsAndIsLeftAlone)
{
    store({});
    const qint64 size = qint64(1) << 40; // a hole, which takes no room
    ASSERT_TRUE(QFile::resize(storeFile(), size));
    start();
    EXPECT_EQ(UserFont, defaultFont);
    expectUsable();
    EXPECT_EQ(QFileInfo(storeFile()).size(), size);
}
