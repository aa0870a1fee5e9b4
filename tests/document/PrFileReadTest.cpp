#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "runtime/AnsiText.h"
#include "tests/document/DocumentFixture.h"
#include "tests/document/RecordPrinters.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/ThisSystem.h"

#include <QDir>

#include <cerrno>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QByteArray plainRow = "0,1,2,n,u,1,-1,-1,0,0,0,1,0,5\r\n";

class Reading : public DocumentFixture
{
protected:
    /// Reads rows after a section that announces paramater of them.
    bool readRows(const QByteArray &rows, int paramater = 1) { return readBytes(fileWithRows(rows, paramater)); }
};

TEST_F(Reading, withoutANameSaysNoFile)
{
    EXPECT_FALSE(read(QString()));
    EXPECT_EQ(host.messages, QStringList{u"No File"_s});
    EXPECT_TRUE(host.titles.isEmpty());
}

TEST_F(Reading, ofAMissingFileShowsTheSystemsText)
{
    EXPECT_FALSE(read(path(u"missing.inv"_s)));
    EXPECT_EQ(host.messages, QStringList{ThisSystem::words(ENOENT)});
    EXPECT_EQ(host.titles, QStringList{path(u"missing.inv"_s)});
}

TEST_F(Reading, ofAFolderOrADeviceFailsWithTheSystemsText)
{
    EXPECT_FALSE(read(path(u"."_s)));
    EXPECT_EQ(host.messages, QStringList{ThisSystem::words(EISDIR)});
    EXPECT_FALSE(read(u"/dev/zero"_s));
    EXPECT_EQ(host.messages.size(), 2);
}

TEST_F(Reading, intoADocumentNumberThatIsNotThereFails)
{
    EXPECT_TRUE(ReadPrFile(put(fileWithRows(plainRow, 1)), 2, host));
    EXPECT_TRUE(ReadPrFile(put(fileWithRows(plainRow, 1)), 0, host));
    EXPECT_EQ(host.messages, (QStringList{u"Subscript out of range"_s, u"Subscript out of range"_s}));
}

struct SectionLine
{
    QByteArray line;
    bool found;
};

class ParameterSectionLine : public Reading, public testing::WithParamInterface<SectionLine>
{
};

TEST_P(ParameterSectionLine, mustStandExactlySo)
{
    EXPECT_EQ(readBytes("[Inverter]\r\nName=a\r\nParamater=1\r\n" + GetParam().line + plainRow), GetParam().found);
    EXPECT_TRUE(host.messages.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Lines, ParameterSectionLine,
    testing::ValuesIn(std::vector<SectionLine>{
        {"[Paramater]\r\n", true},
        {"[Paramater]\n", true},
        {"x\r\n\r\n[Paramater]\r\n", true},
        {"[paramater]\r\n", false},
        {" [Paramater]\r\n", false},
        {"[Paramater] \r\n", false},
        {"[Parameter]\r\n", false},
        {"", false},
    }));

TEST_F(Reading, endsWellIfTheFileEndsAfterTheSectionLine)
{
    EXPECT_TRUE(readBytes("[Inverter]\r\nName=a\r\nParamater=0\r\n[Paramater]"));
    EXPECT_EQ(PrRecords.size(), 1);
    EXPECT_EQ(host.eventPasses, 0);
}

TEST_F(Reading, fillsTheSpareSlotWithOneRowTooMany)
{
    EXPECT_TRUE(readRows(plainRow + plainRow + "0,3,2,third,u,1,-1,-1,0,0,0,0,", 2));
    ASSERT_EQ(PrRecords.size(), 3);
    EXPECT_EQ(PrRecords[2].name, u"third"_s);
}

TEST_F(Reading, refusesTwoRowsTooMany)
{
    EXPECT_FALSE(readRows(plainRow.repeated(4), 2));
    EXPECT_EQ(host.messages, QStringList{u"Subscript out of range"_s});
    EXPECT_EQ(PrRecords.size(), 3);
    EXPECT_EQ(PrRecords[2].number, u"1"_s);
}

TEST_F(Reading, leavesMissingRowsEmpty)
{
    EXPECT_TRUE(readRows(plainRow, 3));
    ASSERT_EQ(PrRecords.size(), 4);
    EXPECT_EQ(PrRecords[1], PrRecord());
    EXPECT_EQ(PrRecords[3], PrRecord());
}

TEST_F(Reading, forgetsTheRowsOfTheEarlierFile)
{
    EXPECT_TRUE(readRows(plainRow.repeated(3), 3));
    EXPECT_TRUE(readRows("", 1));
    EXPECT_EQ(PrRecords, (QList<PrRecord>{PrRecord(), PrRecord()}));
}

struct ParamaterCase
{
    QByteArray value;
    QByteArray rows;
    QString message; ///< empty: the read succeeds
    int paramater;
};

class ParamaterValue : public Reading, public testing::WithParamInterface<ParamaterCase>
{
};

TEST_P(ParamaterValue, isA16BitNumberOfRows)
{
    MachineInfos[docNo].Paramater = 77;
    const auto &[value, rows, message, paramater] = GetParam();
    const bool done = readBytes("[Inverter]\nName=a\nSoftWareVersion=2\nParamater=" + value + "\n[Paramater]\n" + rows);
    EXPECT_EQ(done, message.isEmpty());
    EXPECT_EQ(host.messages.value(0), message);
    EXPECT_EQ(MachineInfos[docNo].Paramater, paramater);
    EXPECT_EQ(MachineInfos[docNo].Name, u"a"_s);
}

INSTANTIATE_TEST_SUITE_P(Values, ParamaterValue,
    testing::ValuesIn(std::vector<ParamaterCase>{
        {"1.5", "", u""_s, 2},
        {"1e2", "", u""_s, 100},
        {"many", "", u"Type mismatch"_s, 77},
        {"3 rows", "", u"Type mismatch"_s, 77},
        {"32768", "", u"Overflow"_s, 77},
        {"-1", "", u"Subscript out of range"_s, -1},
        {"-1", plainRow, u"Subscript out of range"_s, -1},
        {"-0.4", plainRow, u""_s, 0},
        {"-0.6", "", u"Subscript out of range"_s, -1},
        {"-2", "", u"Subscript out of range"_s, -2},
        {"-32768", "", u"Subscript out of range"_s, -32768},
        {"", "", u""_s, 77},
        {"32767", plainRow, u""_s, 32767},
    }));

TEST_F(Reading, hasNotReadWhatFollowsABadParamater)
{
    MachineInfos[docNo].SoftWareVersion = u"old"_s;
    EXPECT_FALSE(readBytes("[Inverter]\nName=a\nSoftWareVersion=new\nParamater=x\n[Paramater]\n"));
    EXPECT_EQ(MachineInfos[docNo].SoftWareVersion, u"old"_s);
}

TEST_F(Reading, takesKeysInAnyOrderAndCaseAndTrimsAllButTheName)
{
    EXPECT_TRUE(readBytes("[INVERTER]\r\nSoftwareVersion = \" 1.0 \"\r\nPARAMATER=0\r\nname=\" XT \"\r\ncode=' 5 '\r\n"
                          "Option0=\" A \"\r\nTypeCode=\" 7 \"\r\nVCapacity=\" 2 \"\r\n[Paramater]\r\n"));
    const MachineInfo info{u" XT "_s, u"7"_s, u"2"_s, u"5"_s, {}, {}, {u"A"_s}, 0, u"1.0"_s};
    EXPECT_EQ(MachineInfos[docNo], info);
}

TEST_F(Reading, endsTheCapacitiesAtAGap)
{
    EXPECT_TRUE(readBytes("[Inverter]\nName=a\nCapacity0=1\nICapacity0=2\nCapacity2=3\nICapacity2=4\nParamater=0\n"
                          "Option0=A\nOption2=C\n[Paramater]\n"));
    EXPECT_EQ(MachineInfos[docNo].Capacity, QStringList{u"1"_s});
    EXPECT_EQ(MachineInfos[docNo].ICapacity, QStringList{u"2"_s});
    EXPECT_EQ(MachineInfos[docNo].Option, QStringList{u"A"_s});
}

TEST_F(Reading, keepsACapacityWithoutItsCurrent)
{
    EXPECT_TRUE(readBytes("[Inverter]\nName=a\nCapacity0=1\nICapacity0=2\nCapacity1=3\nCapacity2=4\nICapacity2=5\n"
                          "Paramater=0\n[Paramater]\n"));
    EXPECT_EQ(MachineInfos[docNo].Capacity, (QStringList{u"1"_s, u"3"_s}));
    EXPECT_EQ(MachineInfos[docNo].ICapacity, QStringList{u"2"_s});
}

TEST_F(Reading, leavesExactlyTheNewListsInAReusedSlot)
{
    MachineInfos[docNo] = {u"old"_s, u"9"_s, u"8"_s, u"7"_s, {u"1"_s, u"2"_s, u"3"_s}, {u"4"_s, u"5"_s, u"6"_s},
        {u"A"_s, u"B"_s}, 12, u"6"_s};
    EXPECT_TRUE(readBytes("[Inverter]\nName=new\nTypeCode=\nCapacity0=10\nICapacity0=20\n[Paramater]\n"));
    // A type code that is not there becomes empty; what else is not there stays.
    const MachineInfo info{u"new"_s, u""_s, u"8"_s, u"7"_s, {u"10"_s}, {u"20"_s}, {}, 12, u"6"_s};
    EXPECT_EQ(MachineInfos[docNo], info);
}

TEST_F(Reading, leavesTheSlotAsItWasWithoutAName)
{
    const MachineInfo info{u"old"_s, u"9"_s, u"8"_s, u"7"_s, {u"1"_s}, {u"4"_s}, {u"A"_s}, 1, u"6"_s};
    for (const char *section :
        {"", "[Inverter]\n", "[Inverter]\nName=\nCode=1\nParamater=x\n", "[Inverter]\nCode=1\n"}) {
        MachineInfos[docNo] = info;
        EXPECT_TRUE(readBytes(QByteArray(section) + "[Paramater]\n" + plainRow)) << section;
        EXPECT_EQ(MachineInfos[docNo], info) << section;
    }
}

struct FieldCase
{
    QByteArray field;
    QString text;
};

class TextField : public Reading, public testing::WithParamInterface<FieldCase>
{
};

TEST_P(TextField, isReadByTheFieldRules)
{
    ASSERT_TRUE(readRows("0,1,2," + GetParam().field + ",u,1,-1,-1,0,0,0,1,0,5\r\n"));
    EXPECT_EQ(PrRecords[0].name, GetParam().text);
    EXPECT_EQ(PrRecords[0].unit, u"u"_s);
}

INSTANTIATE_TEST_SUITE_P(Fields, TextField,
    testing::ValuesIn(std::vector<FieldCase>{
        {"", u""_s},
        {"a", u"a"_s},
        {"  a b  ", u"a b"_s},
        {"   ", u""_s},
        {"\"a,b\"", u"a,b"_s},
        {"  \" a \" ", u" a "_s},
        {"\"\"", u""_s},
        {"\"a\r\nb\"", u"a\r\nb"_s},
        {"a\"b\"", u"a\"b\""_s},
        {"\"a\"  ", u"a"_s},
        {"\ta", u"\ta"_s},
        {"a\rb", u"a\rb"_s},
        {"a much longer text than is shared", u"a much longer text than is shared"_s},
    }));

TEST_F(Reading, takesACommaInANameAsTheEndOfTheField)
{
    // The row's last field then begins a row of its own, which the file's end cuts off.
    EXPECT_FALSE(readRows("0,1,2,a,b,u,1,-1,-1,0,0,0,1,0,5\r\n", 5));
    EXPECT_EQ(PrRecords[0].name, u"a"_s);
    EXPECT_EQ(PrRecords[0].unit, u"b"_s);
    EXPECT_EQ(PrRecords[0].min1, u"u"_s);
    EXPECT_EQ(PrRecords[0].rangeCheck, u"0"_s);
}

TEST_F(Reading, takesNumbersAfterSpacesAndLineEndsAndEmptyOnesAsZero)
{
    ASSERT_TRUE(readRows("\r\n \r\n 1 ,1,2,n,u,1,-1,-1,0,0,0,\r\n 2\r\n , 5 ,-1.5\n1e2 ,79,,3\r\n"));
    const PrRecord &record = PrRecords[0];
    EXPECT_EQ(record.conditionCount, 1);
    EXPECT_EQ(record.ranges, (QList<SettingRange>{{5, 0}, {100, -1.5}}));
    EXPECT_EQ(record.conditions, (QList<PrCondition>{{u"79"_s, 0, u"3"_s, u""_s}}));
}

TEST_F(Reading, takesABareLineFeedAsLineEnd)
{
    ASSERT_TRUE(readBytes("[Inverter]\nName=a\nParamater=2\n[Paramater]\n0,1,2,n,u,1,-1,-1,0,0,0,1,0,5\n"
                          "1,1,2,n,u,1,-1,-1,0,0,0,0,79,2,1,3\n"));
    EXPECT_EQ(PrRecords[0].ranges, (QList<SettingRange>{{5, 0}}));
    EXPECT_EQ(PrRecords[1].conditions, (QList<PrCondition>{{u"79"_s, 2, u"1"_s, u"3"_s}}));
}

TEST_F(Reading, goesOnInTheSameLineAfterARowWithoutRangesAndConditions)
{
    ASSERT_TRUE(readRows("0,1,2,n,u,1,-1,-1,0,0,0,0,0,2,2,m,u,1,-1,-1,0,0,0,0,", 2));
    EXPECT_EQ(PrRecords[0].number, u"1"_s);
    EXPECT_EQ(PrRecords[1].name, u"m"_s);
}

struct BadRows
{
    QByteArray rows;
    QString message;
};

class BadRow : public Reading, public testing::WithParamInterface<BadRows>
{
};

TEST_P(BadRow, endsInItsErrorWithTheEarlierRowsRead)
{
    EXPECT_FALSE(readRows(plainRow + GetParam().rows, 10));
    EXPECT_EQ(host.messages, QStringList{GetParam().message});
    EXPECT_EQ(host.titles.size(), 1);
    ASSERT_GE(PrRecords.size(), 1);
    EXPECT_EQ(PrRecords[0].name, u"n"_s);
    EXPECT_EQ(MachineInfos[docNo].Paramater, 10);
}

INSTANTIATE_TEST_SUITE_P(Rows, BadRow,
    testing::ValuesIn(std::vector<BadRows>{
        {"0", u"Input past end of file"_s},
        {"0,1,2,n", u"Input past end of file"_s},
        {"\r\n", u"Input past end of file"_s},
        {"0,1,2,n,u,1,-1,-1,0,0,0,1,0", u"Input past end of file"_s},
        {"0,1,2,n,u,1,-1,-1,0,0,0,32767,0,1\r\n", u"Input past end of file"_s},
        {"32767,1,2,n,u,1,-1,-1,0,0,0,0,79,0,1\r\n", u"Input past end of file"_s},
        {"1,1,2,n,u,1,-1,-1,0,0,0,0,79,2,1\r\n", u"Input past end of file"_s},
        {"0,1,2,n,u,1,-1,-1,0,0,0,-1,0,1\r\n", u"Subscript out of range"_s},
        {"-1,1,2,n,u,1,-1,-1,0,0,0,0,79,0,1\r\n", u"Subscript out of range"_s},
        {"40000,1,2,n,u,1,-1,-1,0,0,0,0,79,0,1\r\n", u"Overflow"_s},
        {"0,1,2,n,u,1,-1,-1,0,0,0,1,0,1e39\r\n", u"Overflow"_s},
        {"1,1,2,n,u,1,-1,-1,0,0,0,0,79,256,1\r\n", u"Overflow"_s},
        {"1,1,2,n,u,1,-1,-1,0,0,0,0,79,-1,1\r\n", u"Overflow"_s},
    }));

TEST_F(Reading, takesAnExtraLineEndForTheBeginningOfARow)
{
    EXPECT_FALSE(readRows("0,1,2,n,u,1,-1,-1,0,0,0,0,\r\n"));
    EXPECT_EQ(host.messages, QStringList{u"Input past end of file"_s});
}

TEST_F(Reading, ofRowsThatClaimTooMuchTakesNoMemoryForIt)
{
    PrRecords = {}; // without the memory of an earlier test
    EXPECT_FALSE(readRows("0,1,2,n,u,1,-1,-1,0,0,0,32767,0,1\r\n", 32767));
    ASSERT_EQ(PrRecords.size(), 1);
    EXPECT_LT(PrRecords.capacity(), 100);
    EXPECT_LT(PrRecords[0].ranges.capacity(), 100);
}

TEST_F(Reading, letsEventsRunAfterEachRowAsReadSoFar)
{
    QList<qsizetype> rowsSeen;
    host.duringEvents = [&] { rowsSeen << PrRecords.size(); };
    EXPECT_TRUE(readRows(plainRow.repeated(3), 5));
    EXPECT_EQ(rowsSeen, (QList<qsizetype>{1, 2, 3}));
}

TEST_F(Reading, sharesEqualShortTexts)
{
    ASSERT_TRUE(readRows(plainRow.repeated(2), 2));
    EXPECT_EQ(PrRecords[0].min2.constData(), PrRecords[1].min2.constData());
    EXPECT_EQ(PrRecords[0].min2.constData(), PrRecords[0].min3.constData());
}

TEST_F(Reading, decodesTheCodePage)
{
    setAnsiCodePageNumber(932);
    ASSERT_TRUE(readBytes("[Inverter]\r\nName=\x83\x5C\x83\x74\r\nParamater=1\r\n[Paramater]\r\n"
                          "0,1,2,\x95\x5C\x8E\xA6\xB6\xC5,\x81\x8B\x82\x62,1,-1,-1,0,0,0,1,0,5\r\n"));
    EXPECT_EQ(MachineInfos[docNo].Name, u"ソフ"_s);
    EXPECT_EQ(PrRecords[0].name, u"表示ｶﾅ"_s);
    EXPECT_EQ(PrRecords[0].unit, u"°Ｃ"_s);
}

} // namespace
