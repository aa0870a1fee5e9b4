#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const QByteArray section = "[Inverter]\r\nName=XT\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\nSoftWareVersion=1\r\n";

class RenameParameter : public testing::Test
{
protected:
    int run(const QByteArray &file, const QString &number, const QString &name)
    {
        QFile in(m_folder.filePath(u"in.inv"_s));
        EXPECT_TRUE(in.open(QFile::WriteOnly) && in.write(file) == file.size());
        in.close();
        QProcess process;
        process.start(QStringLiteral(TABRIX_RENAME_PROGRAM), {in.fileName(), out(), number, name});
        EXPECT_TRUE(process.waitForFinished(-1));
        said = process.readAllStandardError().replace("\r\n", "\n"); // some systems put the one for the other
        return process.exitCode();
    }
    QString out() const { return m_folder.filePath(u"out.inv"_s); }
    QByteArray written() const
    {
        QFile file(out());
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    QByteArray said;

private:
    QTemporaryDir m_folder;
};

TEST_F(RenameParameter, changesThatNameAndNothingElse)
{
    const QByteArray file =
        section + "Paramater=2\r\n[Paramater]\r\n0,1,2,a,%,1,-1,-1,0,0,0,1,0,5\r\n0,79,3,b,,1,-1,-1,1,0,0,0,";
    EXPECT_EQ(run(file, u"79"_s, u"Mode"_s), 0) << said.constData();
    EXPECT_EQ(written(), QByteArray(file).replace(",b,", ",Mode,"));
}

TEST_F(RenameParameter, saysWhereAFileIsBroken)
{
    EXPECT_EQ(run(section + "Paramater=1\r\n[Paramater]\r\n0,1,2,a,%,1", u"1"_s, u"x"_s), 1);
    const qsizetype end = section.size() + 26 + 11;
    EXPECT_EQ(said, "is not a parameter file (row 1, field 7, byte " + QByteArray::number(end) + ")\n");
    EXPECT_FALSE(QFile::exists(out()));
}

} // namespace
