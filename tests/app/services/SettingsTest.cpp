#include "app/services/Settings.h"

#include "tests/support/QtPrinters.h"
#include "tests/support/UserPlaces.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

/// A settings store of its own for each test.
class SettingsTest : public testing::Test
{
protected:
    SettingsTest()
    {
        UserPlaces::setConfigHome(m_folder.path());
        ListVisualState.fill(false);
    }

    /// What another program, or another version, may have left.
    void store(const QString &key, const QString &text) const { UserPlaces::settings().setValue(key, text); }

    void storeBytes(const QByteArray &bytes) const
    {
        QDir(m_folder.path()).mkpath(u"Tabrix"_s);
        QFile file(filePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    UserFontSettings loadedFont() const
    {
        UserFontSettings font{u"left over"_s, 1, true, true};
        LoadUserFont(font.FontName, font.FontSize, font.FontItalic, font.FontBold);
        return font;
    }

    qint16 loadedWindowState() const
    {
        qint16 state = -1;
        LoadWindowSettings(state);
        return state;
    }

    QList<int> hiddenColumns() const
    {
        QList<int> columns;
        for (int i = 0; i < int(ListVisualState.size()); ++i) {
            if (ListVisualState[std::size_t(i)]) {
                columns << i + 1;
            }
        }
        return columns;
    }

private:
    QString filePath() const { return m_folder.filePath(u"Tabrix/Tabrix.conf"_s); }

    QTemporaryDir m_folder;
};

const QList<int> hiddenAtFirst = {7, 8, 11, 13};
const UserFontSettings defaultFont = {u"System"_s, 12, false, false};

} // namespace

TEST_F(SettingsTest, freshInstallationHasTheDefaults)
{
    EXPECT_EQ(loadedFont(), defaultFont);
    EXPECT_EQ(loadedWindowState(), 2);
    EXPECT_EQ(hiddenColumns(), hiddenAtFirst);
    EXPECT_EQ(recentFiles(), QStringList());
}

TEST_F(SettingsTest, loadingWritesNothing)
{
    loadedFont();
    loadedWindowState();
    recentFiles();
    EXPECT_FALSE(QFile::exists(QSettings(u"Tabrix"_s, u"Tabrix"_s).fileName()));
}

TEST_F(SettingsTest, fontIsStoredAsTexts)
{
    SaveUserFont(u"IPAGothic"_s, 10.5F, true, false);
    const QList<QByteArray> lines = UserPlaces::settingsLines();
    for (const char *line : {"[FontInf]", "FontName=IPAGothic", "FontSize=10.5", "FontItalic=True", "FontBold=False"}) {
        EXPECT_TRUE(lines.contains(line)) << line;
    }
}

TEST_F(SettingsTest, fontComesBack)
{
    for (const UserFontSettings &font : {UserFontSettings{u"\uff2d\uff33 \u30b4\u30b7\u30c3\u30af"_s, 9, false, true},
             UserFontSettings{u"Sans, with \"commas\"; and = signs"_s, 10.25F, true, false},
             UserFontSettings{u"@Vertical"_s, 0.5F, true, true}, UserFontSettings{u" "_s, 1234567, false, false},
             UserFontSettings{QString(10000, u'x'), 1e7F, false, false}}) {
        SaveUserFont(font.FontName, font.FontSize, font.FontItalic, font.FontBold);
        EXPECT_EQ(loadedFont(), font);
    }
}

TEST_F(SettingsTest, windowStateAndColumnsAreStoredAsTexts)
{
    const QByteArray lastEntry = "ListVisualState" + QByteArray::number(ListVisualState.size() - 1);
    ListVisualState[0] = true;
    ListVisualState[12] = true;
    ListVisualState.back() = true;
    SaveWindowSettings(1);
    const QList<QByteArray> lines = UserPlaces::settingsLines();
    for (const char *line : {"[WindowInf]", "WindowState=1", "ListVisualState0=True", "ListVisualState1=False",
             "ListVisualState11=False", "ListVisualState12=True"}) {
        EXPECT_TRUE(lines.contains(line)) << line;
    }
    EXPECT_FALSE(lines.join('\n').contains(lastEntry));
    EXPECT_FALSE(lines.join('\n').contains("ListVisualState00"));
}

TEST_F(SettingsTest, columnsComeBackExceptTheOneThatIsNeverStored)
{
    ListVisualState = {true, false, true, false, true, false, true, false, true, false, true, false, true, true};
    SaveWindowSettings(0);
    ListVisualState.fill(false);
    EXPECT_EQ(loadedWindowState(), 0);
    EXPECT_EQ(hiddenColumns(), (QList<int>{1, 3, 5, 7, 9, 11, 13}));
}

TEST_F(SettingsTest, shownColumnsStayShown)
{
    SaveWindowSettings(2);
    ListVisualState.fill(true);
    ListVisualState.back() = false;
    loadedWindowState();
    EXPECT_EQ(hiddenColumns(), QList<int>());
}

TEST_F(SettingsTest, fontSizeIsTakenWhereItIsNumeric)
{
    const std::pair<QString, float> cases[] = {
        {u"9"_s, 9},
        {u"10.5"_s, 10.5F},
        {u" 11 "_s, 11},
        {u"&H10"_s, 16},
        {u"abc"_s, 12},
        {u""_s, 12},
        {u"12pt"_s, 12},
        {u"1e39"_s, 12},
        {u"1e400"_s, 12},
        {u"-1e39"_s, 12},
        {u"nan"_s, 12},
        {u"-3"_s, -3},
    };
    for (const auto &[text, size] : cases) {
        store(u"FontInf/FontSize"_s, text);
        EXPECT_EQ(loadedFont().FontSize, size) << text.toStdString();
    }
}

TEST_F(SettingsTest, booleansAreReadAsTheStoreWritesThemOrAsNumbers)
{
    const std::pair<QString, bool> cases[] = {
        {u"True"_s, true},
        {u"False"_s, false},
        {u"true"_s, true},
        {u"FALSE"_s, false},
        {u"1"_s, true},
        {u"0"_s, false},
        {u"-1"_s, true},
        {u"yes"_s, false},
        {u""_s, false},
        {u"Tru"_s, false},
    };
    for (const auto &[text, flag] : cases) {
        store(u"FontInf/FontBold"_s, text);
        store(u"FontInf/FontItalic"_s, text);
        EXPECT_EQ(loadedFont().FontBold, flag) << text.toStdString();
        EXPECT_EQ(loadedFont().FontItalic, flag) << text.toStdString();
    }
}

TEST_F(SettingsTest, aColumnWithAnUnreadableValueFallsBackToItsDefault)
{
    store(u"WindowInf/ListVisualState0"_s, u"maybe"_s);
    store(u"WindowInf/ListVisualState6"_s, u"maybe"_s);
    store(u"WindowInf/ListVisualState7"_s, u"False"_s);
    loadedWindowState();
    EXPECT_EQ(hiddenColumns(), (QList<int>{7, 11, 13}));
}

TEST_F(SettingsTest, windowStateIsTheStoredNumber)
{
    const std::pair<QString, qint16> cases[] = {
        {u"0"_s, 0},
        {u"1"_s, 1},
        {u"2"_s, 2},
        {u""_s, 2},
        {u"abc"_s, 0},
        {u"1x"_s, 1},
        {u"99999"_s, 2},
        {u"-5"_s, -5},
    };
    for (const auto &[text, state] : cases) {
        store(u"WindowInf/WindowState"_s, text);
        EXPECT_EQ(loadedWindowState(), state) << text.toStdString();
    }
}

TEST_F(SettingsTest, aDamagedStoreGivesDefaults)
{
    storeBytes("[FontInf]\nFontName=@Variant(\\0\\0\\0\\x7f)\nFontSize=@Size(1 2)\nFontBold=1, 2, 3\n"
               "FontItalic\n[WindowInf\nWindowState=@Invalid()\n\xff\xfe\0=\x80\n[%ZZ]\n");
    EXPECT_EQ(loadedFont(), defaultFont);
    EXPECT_EQ(loadedWindowState(), 2);
    EXPECT_EQ(hiddenColumns(), hiddenAtFirst);
    EXPECT_EQ(recentFiles(), QStringList());
}

TEST_F(SettingsTest, recentFilesAreStoredNewestFirst)
{
    StoreRecentFile(u"/data/a.inv"_s);
    StoreRecentFile(u"/data/b.inv"_s);
    const QList<QByteArray> lines = UserPlaces::settingsLines();
    for (const char *line : {"[Recent%20Files]", "RecentFile1=/data/b.inv", "RecentFile2=/data/a.inv"}) {
        EXPECT_TRUE(lines.contains(line)) << line;
    }
    EXPECT_EQ(recentFiles(), (QStringList{u"/data/b.inv"_s, u"/data/a.inv"_s}));
}

TEST_F(SettingsTest, aListedFileStaysWhereItIs)
{
    StoreRecentFile(u"/data/a.inv"_s);
    StoreRecentFile(u"/data/b.inv"_s);
    StoreRecentFile(u"/data/a.inv"_s);
    EXPECT_EQ(recentFiles(), (QStringList{u"/data/b.inv"_s, u"/data/a.inv"_s}));
}

TEST_F(SettingsTest, onlyTheLastFourFilesAreRemembered)
{
    for (const char16_t name : u"abcde"_s.toStdU16String()) {
        StoreRecentFile(QString(QChar(name)));
    }
    EXPECT_EQ(recentFiles(), (QStringList{u"e"_s, u"d"_s, u"c"_s, u"b"_s}));
}

TEST_F(SettingsTest, aGapInTheListIsFilledFromAbove)
{
    store(u"Recent Files/RecentFile1"_s, u"a"_s);
    store(u"Recent Files/RecentFile3"_s, u"c"_s);
    EXPECT_EQ(recentFiles(), (QStringList{u"a"_s, u"c"_s}));
    StoreRecentFile(u"n"_s);
    EXPECT_EQ(recentFiles(), (QStringList{u"n"_s, u"a"_s, u"c"_s, u"c"_s}));
}

TEST_F(SettingsTest, withoutANewestFileNoneIsShown)
{
    store(u"Recent Files/RecentFile2"_s, u"b"_s);
    EXPECT_EQ(recentFiles(), QStringList());
}

TEST_F(SettingsTest, fileNamesComeBackAsTheyAre)
{
    const QStringList names = {
        u"C:\\DATA\\A.INV"_s, u"c:\\data\\a.inv"_s, u"/\u30c7\u30fc\u30bf, \"x\";&|1 .inv"_s, u"@/odd=%41.inv"_s};
    for (const QString &name : names) {
        StoreRecentFile(name);
    }
    EXPECT_EQ(recentFiles(), QStringList(names.crbegin(), names.crend()));
}
