#include "document/DocumentTables.h"
#include "runtime/AnsiText.h"
#include "tests/document/DocumentFixture.h"
#include "tests/document/RecordPrinters.h"
#include "tests/support/QtPrinters.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray threeRows = "[Inverter]\r\nName=XT-200\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\n"
                             "Capacity0=0.4\r\nICapacity0=2.5\r\nCapacity1=0.75\r\nICapacity1=4.2\r\nOption0=A\r\n"
                             "SoftWareVersion=1.00\r\nParamater=3\r\n[Paramater]\r\n"
                             "0,0,1000,Torque boost,%,0.1,-1,-1,6,3,1,1,0,30\r\n"
                             "2,79,1079,Operation mode selection,,1,-1,-1,0,1,1,1,0,7,MODE,1,1,160,2,1,3\r\n"
                             "0,990,1990,Buzzer control,,1,-1,-1,1,0,0,0,";

class PrFile : public DocumentFixture
{
};

TEST_F(PrFile, readsEveryFieldOfTheThreeRows)
{
    ASSERT_TRUE(readBytes(threeRows));
    const MachineInfo info{
        u"XT-200"_s, u"1"_s, u"2"_s, u"35"_s, {u"0.4"_s, u"0.75"_s}, {u"2.5"_s, u"4.2"_s}, {u"A"_s}, 3, u"1.00"_s};
    EXPECT_EQ(MachineInfos[docNo], info);
    const PrRecord first{0, u"1000"_s, u"0"_s, u"Torque boost"_s, u"%"_s, u"0.1"_s, u"-1"_s, u"-1"_s, u"6"_s, u"3"_s,
        u"1"_s, 1, {{30, 0}}, {}};
    const PrRecord second{2, u"1079"_s, u"79"_s, u"Operation mode selection"_s, u""_s, u"1"_s, u"-1"_s, u"-1"_s, u"0"_s,
        u"1"_s, u"1"_s, 1, {{7, 0}}, {{u"MODE"_s, 1, u"1"_s, u""_s}, {u"160"_s, 2, u"1"_s, u"3"_s}}};
    const PrRecord third{0, u"1990"_s, u"990"_s, u"Buzzer control"_s, u""_s, u"1"_s, u"-1"_s, u"-1"_s, u"1"_s, u"0"_s,
        u"0"_s, 0, {}, {}};
    EXPECT_EQ(PrRecords, (QList<PrRecord>{first, second, third, PrRecord()}));
    EXPECT_TRUE(host.messages.isEmpty());
    EXPECT_EQ(host.eventPasses, 3);
    EXPECT_EQ(host.busyCalls, 0);
}

TEST_F(PrFile, savesTheThreeRowsAsTheyWere)
{
    DocFlags[docNo].changed = true;
    EXPECT_EQ(throughTheProgram(threeRows), threeRows);
    EXPECT_FALSE(DocFlags[docNo].changed);
    EXPECT_EQ(PrRecords.size(), 3);
    EXPECT_EQ(host.busyCalls, 1);
    EXPECT_FALSE(host.busy);
    EXPECT_EQ(host.eventPasses, 6);
}

} // namespace
