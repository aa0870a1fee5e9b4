#include "app/services/IniFile.h"

#include "runtime/AnsiText.h"
#include "runtime/WholeFile.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class IniFile : public testing::Test
{
protected:
    IniFile() { setAnsiCodePageNumber(1252); }
    ~IniFile() override { setAnsiCodePageNumber(0); }

    QString put(const QByteArray &bytes) const
    {
        QFile file(m_folder.filePath(u"set up.ini"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(IniFile, givesAFoundValue)
{
    const QString file = put("[Setup]\r\nLanguage=Japanese\r\n[UserInfomation]\r\nUserName= A. Smith \r\n");
    QString value;
    EXPECT_TRUE(ReadIniString(file, u"Setup"_s, u"Language"_s, value));
    EXPECT_EQ(value, u"Japanese"_s);
    EXPECT_TRUE(ReadIniString(file, u"userinfomation"_s, u"USERNAME"_s, value));
    EXPECT_EQ(value, u"A. Smith"_s);
}

TEST_F(IniFile, refusesAMissingKeyAnEmptyValueAndTheMarkOfAMissingKey)
{
    const QString file = put("[Setup]\r\nEmpty=\r\nQuoted=\"\"\r\nMark=GetPrivateProfieReadError\r\n"
                             "Near=getprivateprofiereaderror\r\n");
    QString value;
    EXPECT_FALSE(ReadIniString(file, u"Setup"_s, u"Language"_s, value));
    EXPECT_FALSE(ReadIniString(file, u"Other"_s, u"Empty"_s, value));
    EXPECT_FALSE(ReadIniString(file, u"Setup"_s, u"Empty"_s, value));
    EXPECT_FALSE(ReadIniString(file, u"Setup"_s, u"Quoted"_s, value));
    EXPECT_FALSE(ReadIniString(file, u"Setup"_s, u"Mark"_s, value));
    EXPECT_TRUE(ReadIniString(file, u"Setup"_s, u"Near"_s, value));
}

TEST_F(IniFile, beyondTheBoundIsAsGoodAsEmpty)
{
    const QString file = put("[Setup]\r\nLanguage=Japanese\r\n");
    QString value;
    ASSERT_TRUE(QFile::resize(file, largestFile)); // takes no space on the disk
    EXPECT_TRUE(ReadIniString(file, u"Setup"_s, u"Language"_s, value));
    ASSERT_TRUE(QFile::resize(file, largestFile + 1));
    EXPECT_FALSE(ReadIniString(file, u"Setup"_s, u"Language"_s, value));
}

TEST_F(IniFile, refusesAFileThatIsNotThere)
{
    QString value;
    EXPECT_FALSE(ReadIniString(u"/nowhere/set up.ini"_s, u"Setup"_s, u"Language"_s, value));
}

TEST_F(IniFile, cutsAValueAt127Bytes)
{
    QString value;
    EXPECT_TRUE(ReadIniString(put("[a]\nb=" + QByteArray(300, 'x')), u"a"_s, u"b"_s, value));
    EXPECT_EQ(value, QString(127, u'x'));
}

} // namespace
