#include "app/services/Settings.h"
#include "runtime/DataFolder.h"
#include "runtime/SettingsFile.h"
#include "runtime/WindowsApi.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/UserPlaces.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <array>

using namespace Qt::StringLiterals;

namespace {

class SettingsInTheRegistry : public testing::Test
{
protected:
    SettingsInTheRegistry()
    {
        UserPlaces::setConfigHome(m_folder.path());
        UserPlaces::setDataHome(m_folder.filePath(u"data"_s));
        m_key = uR"(Software\Tabrix\)"_s + qEnvironmentVariable("TABRIX_SETTINGS");
    }

    /// A value as any other program sees it; "none" if there is no text of that name.
    QString text(const QString &section, const QString &name) const
    {
        std::array<wchar_t, 512> buffer{};
        DWORD size = sizeof buffer;
        const QString key = m_key + u'\\' + section;
        const LONG result = RegGetValueW(HKEY_CURRENT_USER, key.toStdWString().c_str(), name.toStdWString().c_str(),
            RRF_RT_REG_SZ, nullptr, buffer.data(), &size);
        return result == ERROR_SUCCESS ? QString::fromWCharArray(buffer.data()) : u"none"_s;
    }

    QTemporaryDir m_folder;
    QString m_key;
};

} // namespace

TEST_F(SettingsInTheRegistry, areTextsBySectionAndKey)
{
    SaveUserFont(u"MS Gothic"_s, 10.5F, true, false);
    SaveWindowSettings(1);
    StoreRecentFile(uR"(C:\漢字.inv)"_s);
    EXPECT_EQ(text(u"FontInf"_s, u"FontName"_s), u"MS Gothic"_s);
    EXPECT_EQ(text(u"FontInf"_s, u"FontSize"_s), u"10.5"_s);
    EXPECT_EQ(text(u"FontInf"_s, u"FontItalic"_s), u"True"_s);
    EXPECT_EQ(text(u"WindowInf"_s, u"WindowState"_s), u"1"_s);
    EXPECT_EQ(text(u"WindowInf"_s, u"ListVisualState12"_s), u"False"_s);
    EXPECT_EQ(text(u"Recent Files"_s, u"RecentFile1"_s), uR"(C:\漢字.inv)"_s);
    EXPECT_EQ(text(u"Recent Files"_s, u"RecentFile2"_s), u"none"_s);
}

TEST_F(SettingsInTheRegistry, ofOtherKindsGiveDefaults)
{
    const DWORD number = 24;
    const std::array<BYTE, 3> bytes = {0xFF, 0x00, 0x80};
    const std::wstring key = (m_key + uR"(\FontInf)"_s).toStdWString();
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"FontSize", REG_DWORD, &number, sizeof number), 0);
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"FontBold", REG_BINARY, bytes.data(), 3), 0);
    UserFontSettings font{u"left over"_s, 1, true, true};
    LoadUserFont(font.FontName, font.FontSize, font.FontItalic, font.FontBold);
    EXPECT_EQ(font, (UserFontSettings{u"System"_s, 24, false, false})); // a number is one, however it is stored
}

// The registry's name for the settings looks like a path.
TEST_F(SettingsInTheRegistry, areLockedInTheDataFolderAndNowhereElse)
{
    SaveWindowSettings(1);
    EXPECT_TRUE(QDir(dataFolder()).exists());
    EXPECT_FALSE(QDir(u"/HKEY_CURRENT_USER"_s).exists());
    EXPECT_FALSE(QDir(u"HKEY_CURRENT_USER"_s).exists());
}

TEST_F(SettingsInTheRegistry, areStoredThoughThereCanBeNoLock)
{
    QFile inTheWay(m_folder.filePath(u"data"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    SaveWindowSettings(1);
    EXPECT_EQ(text(u"WindowInf"_s, u"WindowState"_s), u"1"_s);
}

TEST_F(SettingsInTheRegistry, ofATestAreNotThoseOfTheUser)
{
    EXPECT_NE(SettingsFile::path(), uR"(\HKEY_CURRENT_USER\Software\Tabrix\Tabrix)"_s);
    qunsetenv("TABRIX_SETTINGS");
    EXPECT_EQ(SettingsFile::path(), uR"(\HKEY_CURRENT_USER\Software\Tabrix\Tabrix)"_s);
}
