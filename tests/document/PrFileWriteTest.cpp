#include "document/DocumentTables.h"
#include "document/ParameterColumn.h"
#include "document/PrFile.h"
#include "runtime/AnsiText.h"
#include "storage/FileBackup.h"
#include "storage/KnownFile.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/ThisSystem.h"
#include "tests/support/UserPlaces.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

class Writing : public DocumentFixture
{
protected:
    Writing()
    {
        MachineInfos[docNo] = {u"XT"_s, u"1"_s, u"2"_s, u"3"_s, {}, {}, {}, 0, u"1.0"_s};
        DocFlags[docNo].changed = true;
        grid.rows = {FakeGrid::emptyRow()};
    }

    void setCell(int column, const QString &text) { grid.rows[0][column - 1] = text; }
    bool write(const QString &fileName) { return save(fileName, grid); }
    /// The document's own file, as it was before the save.
    QString putOwnFile()
    {
        const QString file = put("earlier");
        documentOrigin(docNo).file = KnownFile::present(file);
        return file;
    }
    /// The rows of the saved file.
    QByteArray savedRows()
    {
        EXPECT_TRUE(write(path(u"saved.inv"_s)));
        const QByteArray bytes = contentOf(path(u"saved.inv"_s));
        return bytes.mid(bytes.indexOf("[Paramater]\r\n") + 13);
    }
    QStringList backups(const QString &fileName) const
    {
        return QDir(backupFolder(fileName)).entryList(QDir::Files, QDir::Name);
    }
    /// Expects a save that fails with that text and leaves everything as it was.
    void expectRefusal(const QString &message)
    {
        const QString file = putOwnFile();
        EXPECT_FALSE(write(file));
        EXPECT_EQ(host.messages, QStringList{message});
        EXPECT_EQ(host.titles, QStringList{file});
        EXPECT_EQ(contentOf(file), "earlier");
        EXPECT_TRUE(DocFlags[docNo].changed);
        EXPECT_FALSE(host.busy);
        EXPECT_FALSE(host.busyAtError);
        EXPECT_TRUE(backups(file).isEmpty());
    }

    FakeGrid grid;
};

TEST_F(Writing, withoutANameFailsSilently)
{
    EXPECT_FALSE(write(QString()));
    EXPECT_TRUE(host.messages.isEmpty());
    EXPECT_EQ(host.busyCalls, 1);
    EXPECT_FALSE(host.busy);
    EXPECT_TRUE(DocFlags[docNo].changed);
}

TEST_F(Writing, putsTheMachineInformationInItsOrder)
{
    MachineInfos[docNo].Capacity = {u"0.4"_s, u"0.75"_s};
    MachineInfos[docNo].ICapacity = {u"2.5"_s, u"4.2"_s, u"7"_s};
    host.answersYes = true; // the third current goes
    MachineInfos[docNo].Option = {u"A"_s, u"B"_s};
    EXPECT_TRUE(write(path(u"saved.inv"_s)));
    EXPECT_EQ(contentOf(path(u"saved.inv"_s)),
        QByteArray("[Inverter]\r\nName=XT\r\nTypeCode=1\r\nVCapacity=2\r\nCode=3\r\nCapacity0=0.4\r\n"
                   "ICapacity0=2.5\r\nCapacity1=0.75\r\nICapacity1=4.2\r\nOption0=A\r\nOption1=B\r\n"
                   "SoftWareVersion=1.0\r\nParamater=1\r\n[Paramater]\r\n0,,,,,1,-1,-1,0,0,0,0,"));
    EXPECT_EQ(MachineInfos[docNo].Paramater, 1);
    EXPECT_FALSE(DocFlags[docNo].changed);
    EXPECT_FALSE(host.busy);
    EXPECT_TRUE(host.messages.isEmpty());
    EXPECT_EQ(host.eventPasses, 1);
}

TEST_F(Writing, endsTheLineAfterTheLastConditionOrTheLastRange)
{
    setCell(3, u"0-400,9999,5-"_s);
    EXPECT_EQ(savedRows(), "0,,,,,1,-1,-1,0,0,0,3,0,400,9999,0,5,-1\r\n");
    setCell(13, u"79=1-3,OP/A1"_s);
    EXPECT_EQ(savedRows(), "2,,,,,1,-1,-1,0,0,0,3,0,400,9999,0,5,-1,79,2,1,3,OP,1,A1\r\n");
    setCell(3, u""_s);
    EXPECT_EQ(savedRows(), "2,,,,,1,-1,-1,0,0,0,0,79,2,1,3,OP,1,A1\r\n");
}

TEST_F(Writing, leavesOutAnEmptySecondValue)
{
    PrRecords = {};
    setCell(13, u"79=-1"_s);
    EXPECT_EQ(savedRows(), "1,,,,,1,-1,-1,0,0,0,0,79,2,,1\r\n");
}

TEST_F(Writing, takesEveryColumnButTheConditionCount)
{
    host.answersYes = true; // the comma goes with the name
    grid.rows[0] = QStringList{u"79"_s, u"Name, with comma"_s, u"1"_s, u"1"_s, u"0.1"_s, u"No"_s, u"0.001"_s, u"Hz"_s,
        u"1,5"_s, u"1079"_s, u"FFFF"_s, u"9"_s, u"MODE=1"_s};
    EXPECT_EQ(savedRows(), "1,79,1079,Name, with comma,Hz,0.1,-1,0.001,1.5,-1,1,1,1,0,MODE,0,1\r\n");
    EXPECT_EQ(PrRecords.size(), 1);
    EXPECT_EQ(PrRecords[0].conditionCount, 1);
}

TEST_F(Writing, ofAWindowLeavesTheSharedRecordsAlone)
{
    PrRecords = {PrRecord()};
    grid.rows = {FakeGrid::emptyRow(), FakeGrid::emptyRow()};
    setCell(1, u"79"_s);
    DocumentOrigin origin;
    ASSERT_TRUE(saveDocument(path(u"saved.inv"_s), {MachineInfos[docNo], grid, origin}, host));
    const QByteArray saved = contentOf(path(u"saved.inv"_s));
    EXPECT_EQ(PrRecords, QList<PrRecord>{PrRecord()});
    EXPECT_EQ(host.eventPasses, 2);
    ASSERT_FALSE(WritePrFile(path(u"rim.inv"_s), {docNo, grid}, host));
    EXPECT_EQ(contentOf(path(u"rim.inv"_s)), saved);
    ASSERT_EQ(PrRecords.size(), 2);
    EXPECT_EQ(PrRecords[0].number, u"79"_s);
}

TEST_F(Writing, tellsOfAnOverflowBeforeEverythingElse)
{
    MachineInfos[docNo].Name = u"\u6295"_s; // not in code page 1252
    grid.rows = {FakeGrid::emptyRow(), FakeGrid::emptyRow()};
    setCell(2, u"\u6295"_s);
    grid.rows[1][10] = u"10000"_s;
    DocumentOrigin origin;
    const SaveSource document{MachineInfos[docNo], grid, origin};
    EXPECT_EQ(saveDocument(path(u"saved.inv"_s), document, host), FailureCode::Overflow);
    MachineInfos[docNo].Name = u"XT"_s;
    EXPECT_EQ(saveDocument(path(u"saved.inv"_s), document, host), FailureCode::Overflow);
    EXPECT_FALSE(QFile::exists(path(u"saved.inv"_s)));
    EXPECT_EQ(MachineInfos[docNo].Paramater, 0);
    EXPECT_EQ(host.eventPasses, 0);
}

TEST_F(Writing, ofAGridWithoutRowsEndsAfterTheSectionLine)
{
    grid.rows.clear();
    EXPECT_EQ(savedRows(), "");
    EXPECT_TRUE(PrRecords.isEmpty());
}

TEST_F(Writing, refusesAFunctionCodeAbove16Bits)
{
    setCell(11, u"10000"_s);
    expectRefusal(u"Overflow"_s);
}

TEST_F(Writing, refusesABoundThatNoSingleHolds)
{
    setCell(3, u"0-1e39"_s);
    expectRefusal(u"Overflow"_s);
}

TEST_F(Writing, refusesARowCountAbove16Bits)
{
    grid.rows = QList<QStringList>(40000, FakeGrid::emptyRow());
    expectRefusal(u"Overflow"_s);
}

TEST_F(Writing, refusesACharacterThatTheCodePageDoesNotHave)
{
    grid.rows << FakeGrid::emptyRow();
    grid.rows[1][1] = u"Drehzahl 漢"_s;
    expectRefusal(u"Row 2: the character \"漢\" (U+6F22) does not exist in code page 1252."_s);
    EXPECT_EQ(host.cells, (QList<CellPosition>{{.row = 2, .column = ParameterColumn::Name}}));
}

TEST_F(Writing, refusesACharacterOfTwoUnitsAsAWhole)
{
    setCell(8, u"\U0001F600"_s);
    expectRefusal(u"Row 1: the character \"\U0001F600\" (U+1F600) does not exist in code page 1252."_s);
    EXPECT_EQ(host.cells, (QList<CellPosition>{{.row = 1, .column = ParameterColumn::Unit}}));
}

TEST_F(Writing, refusesSuchACharacterInTheMachineInformationEvenBeforeAMissingCurrent)
{
    MachineInfos[docNo].Name = u"漢"_s;
    MachineInfos[docNo].Capacity = {u"1"_s};
    expectRefusal(u"Name: the character \"漢\" (U+6F22) does not exist in code page 1252."_s);
}

TEST_F(Writing, intoADocumentNumberThatIsNotThereFails)
{
    EXPECT_TRUE(WritePrFile(path(u"saved.inv"_s), {2, grid}, host));
    EXPECT_EQ(host.messages, QStringList{u"Subscript out of range"_s});
    EXPECT_FALSE(QFileInfo::exists(path(u"saved.inv"_s)));
}

TEST_F(Writing, leavesWhatPrecedesAMissingCurrent)
{
    const QString file = putOwnFile();
    host.answersYes = true;
    MachineInfos[docNo].Capacity = {u"1"_s, u"2"_s};
    MachineInfos[docNo].ICapacity = {u"3"_s};
    EXPECT_FALSE(write(file));
    EXPECT_EQ(contentOf(file),
        "[Inverter]\r\nName=XT\r\nTypeCode=1\r\nVCapacity=2\r\nCode=3\r\nCapacity0=1\r\nICapacity0=3\r\n"
        "Capacity1=2\r\n");
    EXPECT_EQ(host.messages, QStringList{u"Subscript out of range"_s});
    EXPECT_EQ(host.titles, QStringList({file, file})) << "the question and the message";
    EXPECT_TRUE(DocFlags[docNo].changed);
    EXPECT_FALSE(host.busy);
    ASSERT_EQ(backups(file).size(), 1);
    EXPECT_EQ(contentOf(backupFolder(file) + u'/' + backups(file)[0]), "earlier");
}

struct FaultyTarget
{
    QString fileName;
    int error; ///< number of errno
};

class WritingFault : public Writing, public testing::WithParamInterface<FaultyTarget>
{
};

TEST_P(WritingFault, isToldAndLeavesTheDocumentChanged)
{
    if (GetParam().fileName.isEmpty()) {
        GTEST_SKIP() << "no device on this system is full";
    }
    EXPECT_FALSE(write(GetParam().fileName));
    EXPECT_EQ(host.messages, QStringList{ThisSystem::words(GetParam().error)});
    EXPECT_EQ(host.titles, QStringList{GetParam().fileName});
    EXPECT_TRUE(DocFlags[docNo].changed);
    EXPECT_FALSE(host.busy);
    EXPECT_TRUE(write(path(u"elsewhere.inv"_s)));
}

INSTANTIATE_TEST_SUITE_P(Targets, WritingFault,
    testing::ValuesIn(std::vector<FaultyTarget>{
        {ThisSystem::fullDevice(), ENOSPC},
        {u"/"_s, EISDIR},
        {u"/nowhere/at all.inv"_s, ENOENT},
    }));

TEST_F(Writing, runsEventsUnderTheBusyPointer)
{
    bool busyDuringEvents = false;
    host.duringEvents = [&] { busyDuringEvents = host.busy; };
    EXPECT_TRUE(write(path(u"saved.inv"_s)));
    EXPECT_TRUE(busyDuringEvents);
}

TEST_F(Writing, throughALinkReplacesTheFileThatItLeadsTo)
{
    if (!ThisSystem::hasLinks()) {
        GTEST_SKIP() << "not everybody may make links on this system";
    }
    const QString file = putOwnFile();
    ASSERT_TRUE(QFile::link(file, path(u"link.inv"_s)));
    EXPECT_TRUE(write(path(u"link.inv"_s)));
    EXPECT_TRUE(QFileInfo(path(u"link.inv"_s)).isSymLink());
    EXPECT_TRUE(contentOf(file).startsWith("[Inverter]"));
    EXPECT_EQ(contentOf(backupFolder(path(u"link.inv"_s)) + u'/' + backups(path(u"link.inv"_s))[0]), "earlier");
}

TEST_F(Writing, keepsTheLastTenVersionsInTheirOrder)
{
    const QString file = path(u"saved.inv"_s);
    for (int i = 0; i <= 13; ++i) {
        setCell(1, QString::number(i));
        ASSERT_TRUE(write(file));
    }
    const QStringList kept = backups(file);
    ASSERT_EQ(kept.size(), 10);
    for (int i = 0; i < 10; ++i) {
        const QByteArray bytes = contentOf(backupFolder(file) + u'/' + kept[i]);
        EXPECT_TRUE(bytes.contains("\r\n0," + QByteArray::number(i + 3) + ",,")) << bytes.toStdString();
    }
    EXPECT_EQ(QDir(QFileInfo(file).path()).entryList(QDir::Files), QStringList{u"saved.inv"_s});
}

TEST_F(Writing, keepsNoVersionOfANewFile)
{
    EXPECT_TRUE(write(path(u"saved.inv"_s)));
    EXPECT_FALSE(QFileInfo::exists(backupFolder(path(u"saved.inv"_s))));
}

TEST_F(Writing, keepsFilesOfOneNameInDifferentFoldersApart)
{
    EXPECT_NE(backupFolder(u"/a/XT.INV"_s), backupFolder(u"/b/XT.INV"_s));
    EXPECT_EQ(backupFolder(u"/a/XT.INV"_s), backupFolder(u"/a/b/../XT.INV"_s));
    EXPECT_TRUE(QFileInfo(backupFolder(u"/a/XT.INV"_s)).fileName().startsWith(u"XT.INV-"_s));
}

TEST_F(Writing, asksWhenTheEarlierVersionCannotBeKeptAndTouchesNothingOnNo)
{
    UserPlaces::setDataHome(put("a file where the folder should be", u"blocked"_s));
    const QString file = putOwnFile();
    EXPECT_FALSE(write(file));
    EXPECT_EQ(host.questions,
        QStringList{u"The earlier version could not be kept in "_s + QDir::toNativeSeparators(backupFolder(file))
            + u": "_s + ThisSystem::words(ENOTDIR) + u"\nIf you save now, it is lost. Save all the same?"_s});
    EXPECT_EQ(host.titles, QStringList{file});
    EXPECT_TRUE(host.messages.isEmpty());
    EXPECT_EQ(contentOf(file), "earlier");
    EXPECT_TRUE(DocFlags[docNo].changed);
}

TEST_F(Writing, savesOnYesWhereTheEarlierVersionCannotBeKept)
{
    UserPlaces::setDataHome(put("a file where the folder should be", u"blocked"_s));
    host.answersYes = true;
    const QString file = put("earlier");
    documentOrigin(docNo).file = KnownFile::present(file);
    EXPECT_TRUE(write(file));
    EXPECT_EQ(host.questions.size(), 1);
    EXPECT_TRUE(contentOf(file).startsWith("[Inverter]"));
    EXPECT_FALSE(DocFlags[docNo].changed);
}

TEST_F(Writing, leavesAFileAloneOfWhichTheSystemDoesNotTellWhetherItIsThere)
{
    if (!ThisSystem::hasLinks()) {
        GTEST_SKIP() << "not everybody may make links on this system";
    }
    const QString loop = path(u"loop"_s);
    ASSERT_TRUE(QFile::link(loop, loop));
    EXPECT_FALSE(write(loop + u"/saved.inv"_s));
    EXPECT_EQ(host.messages, QStringList{u"Too many levels of symbolic links"_s});
    EXPECT_TRUE(DocFlags[docNo].changed);
}

// The part before a missing current is not a version to keep, and it differs each time.
TEST_F(Writing, ofAPartPushesNoVersionOutHoweverOften)
{
    const QString file = path(u"saved.inv"_s);
    for (int i = 0; i < 5; ++i) {
        setCell(1, QString::number(i));
        ASSERT_TRUE(write(file));
    }
    const QByteArray whole = contentOf(file);
    MachineInfos[docNo].Capacity = {u"1"_s};
    host.answersYes = true; // to write what will not be read back
    for (int i = 0; i < 12; ++i) {
        MachineInfos[docNo].Name = u"part %1"_s.arg(i);
        ASSERT_FALSE(write(file));
    }
    const QStringList kept = backups(file);
    ASSERT_EQ(kept.size(), 5);
    EXPECT_EQ(contentOf(backupFolder(file) + u'/' + kept.last()), whole);
    for (const QString &name : kept) {
        EXPECT_TRUE(contentOf(backupFolder(file) + u'/' + name).contains("[Paramater]")) << name.toStdString();
    }
}

TEST_F(Writing, neitherCountsNorDeletesNorFollowsForeignFilesAmongTheVersions)
{
    const QString file = path(u"saved.inv"_s);
    const QString folder = backupFolder(file);
    ASSERT_TRUE(QDir().mkpath(folder));
    const QStringList foreign = {u"99999999.inv"_s, u"99999999 2025-01-01 00-00-00 copy.inv"_s, u"XT.inv"_s,
        u"99999998 2025-99-01 00-00-00.inv"_s};
    for (const QString &name : foreign) {
        QFile other(folder + u'/' + name);
        ASSERT_TRUE(other.open(QFile::WriteOnly));
        other.write("foreign");
    }
    for (int i = 0; i <= 12; ++i) {
        setCell(1, QString::number(i));
        ASSERT_TRUE(write(file));
    }
    QStringList kept = backups(file);
    for (const QString &name : foreign) {
        EXPECT_TRUE(kept.removeOne(name)) << name.toStdString();
    }
    ASSERT_EQ(kept.size(), 10);
    EXPECT_TRUE(kept.last().startsWith(u"00000012 "_s)) << kept.last().toStdString();
    EXPECT_TRUE(contentOf(folder + u'/' + kept.last()).contains("\r\n0,11,,"));
}

} // namespace
