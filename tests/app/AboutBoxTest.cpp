#include "app/frmVersion.h"
#include "desktop/MemoryStatus.h"
#include "editor/frmPrFile.h"
#include "runtime/Country.h"
#include "tests/support/FrameTest.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class AboutBox : public FrameTest
{
protected:
    void writeIni(const QString &folder, const QString &name, const QByteArray &bytes)
    {
        QDir(path(u"."_s)).mkpath(folder);
        writeFile(folder + u'/' + name, bytes);
    }
    /// What the box's label shows, after the box was closed by its button.
    QString shown(const QString &label)
    {
        QString text;
        ModalScript script;
        script.then([&](QWidget &box) {
            text = control<QLabel>(box, label).text();
            QTest::mouseClick(&control<QPushButton>(box, u"cmdOK"_s), Qt::LeftButton);
        });
        chooseMenu(u"mneHelp"_s, u"mneHelpVer"_s);
        return text;
    }
};

TEST_F(AboutBox, showsProgramAndVersion)
{
    start();
    EXPECT_EQ(shown(u"lblSwName"_s), u"Parameter File Editer\r\nTabrix  V2.0"_s);
    setCountryCode(81);
    start();
    EXPECT_EQ(shown(u"lblSwName"_s), u"ﾊﾟﾗﾒｰﾀﾌｧｲﾙ編集\r\nTabrix  V2.0"_s);
}

TEST_F(AboutBox, showsTheUserOfTheSetUpFileTrimmed)
{
    writeIni(u"files/us"_s, u"korvelin_e.ini"_s, "[UserInfomation]\r\nUserName=\"  A. Smith \"\r\nUserCorp=Works\r\n");
    start();
    EXPECT_EQ(shown(u"lblName"_s), u"A. Smith\nWorks"_s);
}

TEST_F(AboutBox, trimsOnlyBlanks)
{
    writeIni(u"files/us"_s, u"korvelin_e.ini"_s,
        "[UserInfomation]\r\nUserName=\" \tA. Smith\xa0 \"\r\nUserCorp=\"Works \t\"\r\n");
    start();
    EXPECT_EQ(shown(u"lblName"_s), u"\tA. Smith\u00a0\nWorks \t"_s);
}

TEST_F(AboutBox, showsBlanksWithoutASetUpFile)
{
    start();
    EXPECT_EQ(shown(u"lblName"_s), u" \n "_s);
}

TEST_F(AboutBox, looksForTheUserInTheFileOfTheLanguageOnly)
{
    setCountryCode(81);
    writeIni(u"files/us"_s, u"korvelin_e.ini"_s,
        "[Setup]\r\nLanguage=Japanese\r\n[UserInfomation]\r\nUserName=A\r\nUserCorp=B\r\n");
    start();
    EXPECT_EQ(editor().windowTitle(), u"無題"_s);
    EXPECT_EQ(shown(u"lblName"_s), u" \n "_s);
}

TEST_F(AboutBox, showsTheMachinesMemory)
{
    start();
    EXPECT_EQ(shown(u"lblMemory"_s),
        u"Abailable Memory:"_s + QString::number(memoryInKilobytes(totalPhysicalMemory())) + u"KB"_s);
}

TEST(MemoryFigure, isASignedThirtyTwoBitNumberOfBytesInKilobytes)
{
    constexpr quint64 gigabyte = quint64(1) << 30;
    EXPECT_EQ(memoryInKilobytes(quint64(65536) * 1024), 65536);
    EXPECT_EQ(memoryInKilobytes(2 * gigabyte - 1), 2097151);
    EXPECT_EQ(memoryInKilobytes(2 * gigabyte), -2097152);
    EXPECT_EQ(memoryInKilobytes(3 * gigabyte), -1048576);
    EXPECT_EQ(memoryInKilobytes(4 * gigabyte - 1), 0);
    EXPECT_EQ(memoryInKilobytes(5 * gigabyte), 1048576);
    EXPECT_EQ(memoryInKilobytes(0), 0);
}

TEST(PhysicalMemory, isTold)
{
    EXPECT_GT(totalPhysicalMemory(), quint64(1) << 26);
}
