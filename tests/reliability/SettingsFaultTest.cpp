#include "app/Settings.h"
#include "editor/frmPrFile.h"
#include "platform/SpreadGrid.h"
#include "tests/support/FrameTest.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTest>

#include <ostream>

using namespace Qt::StringLiterals;

namespace {

const UserFontSettings usualFont = {u"System"_s, 12, false, false};

/// A settings file that no Tabrix has written so.
struct Damage
{
    const char *name;
    QByteArray bytes;
    UserFontSettings font = usualFont;
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
    EXPECT_EQ(UserFont, usualFont);
    expectUsable();
}

TEST_F(SettingsFault, aFolderInTheFilesPlaceGivesDefaults)
{
    QFile::remove(storeFile());
    ASSERT_TRUE(QDir().mkpath(storeFile()));
    start();
    EXPECT_EQ(UserFont, usualFont);
    expectUsable();
    EXPECT_TRUE(QFileInfo(storeFile()).isDir());
}

TEST_F(SettingsFault, aFileInTheFoldersPlaceGivesDefaults)
{
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    QFile file(folder());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    start();
    EXPECT_EQ(UserFont, usualFont);
    expectUsable();
    QFile::remove(folder());
}
