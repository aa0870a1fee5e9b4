// Bytes to a document and back, without a table, a file or a host.

#include "document/PrFileCodec.h"

#include "runtime/AnsiText.h"
#include "tests/document/RecordPrinters.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QByteArray typicalSection = "[Inverter]\r\nName=XT\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\nCapacity0=0.4\r\n"
                                  "ICapacity0=2.5\r\nSoftWareVersion=1.00\r\n";
const QByteArray firstRow = "0,0,1000,Torque boost,%,0.1,-1,-1,6,3,1,1,0,30\r\n";
const QByteArray secondRow = "1,79,1079,Mode,,1,-1,-1,0,1,1,1,0,7,MODE,1,1\r\n";

QByteArray fileOf(const QByteArray &rows, const QByteArray &announced)
{
    return typicalSection + "Paramater=" + announced + "\r\n[Paramater]\r\n" + rows;
}

const AnsiCodePage &western()
{
    return AnsiCodePage::page(1252);
}

TEST(PrFileCodec, decodesAndEncodesTheSameBytes)
{
    const QByteArray file = fileOf(firstRow + secondRow, "2");
    DecodedPrFile decoded = decodePrFile(file, western());
    ASSERT_TRUE(decoded.outcome);
    EXPECT_EQ(decoded.document.machine.Name, u"XT"_s);
    EXPECT_EQ(decoded.document.codePage, 1252);
    ASSERT_EQ(decoded.document.rows.size(), 3);
    EXPECT_EQ(decoded.document.rows[1].number, u"79"_s);
    EXPECT_EQ(decoded.document.rows[2], PrRecord());
    ASSERT_TRUE(decoded.findings);
    EXPECT_TRUE(decoded.findings->isWhole());

    decoded.document.rows.removeLast();
    const EncodedPrFile encoded = encodePrFile(decoded.document);
    EXPECT_TRUE(encoded.isWritable());
    EXPECT_FALSE(encoded.isPart);
    EXPECT_EQ(encoded.bytes, file);
}

TEST(PrFileCodec, writesInThePageThatItReadIn)
{
    const QByteArray file = fileOf("0,1,2,\x93\x8A,%,1,-1,-1,0,0,0,1,5,6\r\n", "1"); // 投
    for (const int page : {932, 1252}) {
        DecodedPrFile decoded = decodePrFile(file, AnsiCodePage::page(page));
        EXPECT_EQ(decoded.document.rows.first().name, page == 932 ? u"投"_s : u"“Š"_s);
        decoded.document.rows.removeLast();
        EXPECT_EQ(encodePrFile(decoded.document).bytes, file) << page;
    }
}

TEST(PrFileCodec, callsBackAfterEachRow)
{
    int calls = 0;
    Document document;
    document.codePage = 1252;
    PrFileDecoder decoder(fileOf(firstRow + secondRow, "2"), western());
    EXPECT_TRUE(decoder.decodeRows(2, document.rows, [&] { EXPECT_EQ(document.rows.size(), ++calls); }));
    EXPECT_EQ(calls, 2);
    encodePrFile(document, [&] { ++calls; });
    EXPECT_EQ(calls, 5);
}

TEST(PrFileCodec, keepsWhatTheFileDoesNotName)
{
    MachineInfo earlier;
    earlier.Name = u"old"_s;
    earlier.Paramater = 1;
    MachineInfo machine = earlier;
    EXPECT_TRUE(PrFileDecoder("[Inverter]\r\nCode=9\r\n[Paramater]\r\n", western()).decodeMachine(machine));
    EXPECT_EQ(machine, earlier);
}

struct Broken
{
    const char *what;
    QByteArray file;
    FailureCode code;
    FilePosition position; ///< offset from the first row on; in the section from the file's beginning
    int rowsLeft; ///< that were read, the broken one included
};

class BrokenFile : public testing::TestWithParam<Broken>
{
};

TEST_P(BrokenFile, saysWhatIsWrongAndWhere)
{
    const auto decoded = decodePrFile(GetParam().file, western());
    ASSERT_FALSE(decoded.outcome);
    EXPECT_EQ(decoded.outcome.failure().code, GetParam().code);
    const auto position = decoded.outcome.failure().position;
    ASSERT_TRUE(position);
    FilePosition expected = GetParam().position;
    if (expected.row > 0) {
        expected.offset += GetParam().file.indexOf("[Paramater]\r\n") + 13;
    }
    EXPECT_EQ(position->row, expected.row);
    EXPECT_EQ(position->field, expected.field);
    EXPECT_EQ(position->offset, expected.offset);
    EXPECT_EQ(decoded.document.rows.size(), GetParam().rowsLeft);
}

const int rowLength = int(firstRow.size());

INSTANTIATE_TEST_SUITE_P(Files, BrokenFile,
    testing::ValuesIn(std::vector<Broken>{
        {"count of the section", fileOf(firstRow, "x"), FailureCode::TypeMismatch, {0, 0, typicalSection.size() + 10},
            0},
        {"condition count", fileOf(firstRow + "99999,", "2"), FailureCode::Overflow, {2, 1, rowLength}, 2},
        {"end in a row", fileOf(firstRow + "0,1,2,n", "2"), FailureCode::InputPastEnd, {2, 5, rowLength + 7}, 2},
        {"negative range count", fileOf("0,1,2,n,u,1,-1,-1,0,0,0,-2,\r\n", "1"), FailureCode::SubscriptOutOfRange,
            {1, 12, 24}, 1},
        {"kind of a condition", fileOf("1,1,2,n,u,1,-1,-1,0,0,0,0,79,999,1\r\n", "1"), FailureCode::Overflow,
            {1, 14, 29}, 1},
        {"two rows too many", fileOf(firstRow + firstRow + firstRow, "1"), FailureCode::SubscriptOutOfRange,
            {3, 0, 2 * rowLength}, 2},
    }),
    [](const auto &tested) { return QByteArray(tested.param.what).replace(' ', '_').toStdString(); });

TEST(PrFileCodec, isSilentWithoutTheRowsLine)
{
    const auto decoded = decodePrFile(typicalSection, western());
    ASSERT_FALSE(decoded.outcome);
    EXPECT_EQ(decoded.outcome.failure().code, FailureCode::NoParameterSection);
    EXPECT_TRUE(decoded.outcome.failure().isSilent());
    EXPECT_FALSE(decoded.findings);
    EXPECT_EQ(decoded.document.machine.Code, u"35"_s);
}

TEST(PrFileCodec, countsTheBytesThatAreNoCharacters)
{
    const QByteArray row = "0,1,2,a\x81 b\xFF,%,1,-1,-1,0,0,0,1,5,6\r\n";
    EXPECT_EQ(decodePrFile(fileOf(row, "1"), AnsiCodePage::page(932)).findings->bytesUndecoded, 2);
    EXPECT_EQ(decodePrFile(fileOf(firstRow, "1"), AnsiCodePage::page(932)).findings->bytesUndecoded, 0);
}

TEST(PrFileCodec, writesUpToACapacityWithoutItsCurrent)
{
    Document document = decodePrFile(fileOf(firstRow, "1"), western()).document;
    document.machine.Capacity << u"0.75"_s;
    const EncodedPrFile encoded = encodePrFile(document);
    EXPECT_TRUE(encoded.isWritable());
    EXPECT_TRUE(encoded.isPart);
    EXPECT_EQ(encoded.outcome.failure().code, FailureCode::SubscriptOutOfRange);
    EXPECT_TRUE(encoded.bytes.endsWith("Capacity1=0.75\r\n"));
}

TEST(PrFileCodec, refusesACharacterThatThePageLacks)
{
    Document document = decodePrFile(fileOf(firstRow, "1"), western()).document;
    document.rows[0].unit = u"度"_s;
    const EncodedPrFile encoded = encodePrFile(document);
    EXPECT_FALSE(encoded.isWritable());
    EXPECT_TRUE(encoded.bytes.isEmpty());
    EXPECT_EQ(encoded.outcome.failure().code, FailureCode::RowCharacterMissing);
    EXPECT_EQ(encoded.outcome.failure().arguments, (QStringList{u"1"_s, u"度"_s, u"5EA6"_s, u"1252"_s}));
    ASSERT_TRUE(encoded.outcome.failure().cell);
    EXPECT_EQ(encoded.outcome.failure().cell->row, 1);
    document.codePage = 932;
    EXPECT_TRUE(encodePrFile(document).isWritable());
}

} // namespace
