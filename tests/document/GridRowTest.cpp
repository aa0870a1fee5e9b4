// What a window opens is what is shown of the records that the same bytes are read as.

#include "document/PlainRow.h"
#include "document/PrFileCodec.h"
#include "document/RecordTexts.h"
#include "runtime/AnsiText.h"
#include "tests/document/PlainRows.h"
#include "tests/document/RandomDocument.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString shown(const CellRow &row)
{
    QStringList texts;
    for (int column = 0; column < ParameterColumn::Count; ++column) {
        texts << row.text(column).toString();
    }
    return texts.join(u'|');
}

/// What reading a file came to, with each row as it is shown.
struct Read
{
    QStringList rows;
    Result<> outcome;
    std::optional<ReadFindings> findings;
    int events = 0;
};

Read readRecords(const QByteArray &bytes, const AnsiCodePage &page, qint16 announced)
{
    Read read;
    PrFileDecoder decoder(bytes, page);
    QList<PrRecord> records;
    read.outcome = decoder.decodeRows(announced, records, [&read] { ++read.events; });
    read.findings = decoder.findings();
    for (const PrRecord &record : records) {
        read.rows << shown(CellRow(RecordTexts(record).cells()));
    }
    return read;
}

Read readGrid(const QByteArray &bytes, const AnsiCodePage &page, qint16 announced)
{
    Read read;
    PrFileDecoder decoder(bytes, page);
    std::vector<CellRow> rows;
    read.outcome = decoder.decodeRows(announced, rows, [&read] { ++read.events; });
    read.findings = decoder.findings();
    for (const CellRow &row : rows) {
        read.rows << shown(row);
    }
    return read;
}

void expectTheSame(const QByteArray &bytes, const AnsiCodePage &page, qint16 announced)
{
    const Read grid = readGrid(bytes, page, announced);
    const Read records = readRecords(bytes, page, announced);
    EXPECT_EQ(grid.rows, records.rows) << bytes.constData();
    EXPECT_EQ(grid.events, records.events) << bytes.constData();
    EXPECT_EQ(grid.findings, records.findings) << bytes.constData();
    EXPECT_EQ(bool(grid.outcome), bool(records.outcome)) << bytes.constData();
    if (!grid.outcome && !records.outcome) {
        EXPECT_EQ(grid.outcome.failure().code, records.outcome.failure().code) << bytes.constData();
        EXPECT_EQ(grid.outcome.failure().position, records.outcome.failure().position) << bytes.constData();
    }
}

int plainRows(const QByteArray &bytes, const AnsiCodePage &page)
{
    int count = 0;
    for (PlainRowReader reader(rowsOfFile(bytes), page); reader.next(); ++count) { }
    return count;
}

/// Rows of a common kind; then with some bytes exchanged, and cut off anywhere.
TEST(GridRow, isWhatIsShownOfTheRecord)
{
    int plain = 0;
    int whole = 0;
    constexpr quint32 files = 1000;
    for (quint32 seed = 0; seed < files; ++seed) {
        PlainRows random(seed);
        const AnsiCodePage &page = AnsiCodePage::page(seed % 2 == 0 ? 932 : 1252);
        const int rows = random.number(8);
        const QByteArray sound = PlainRows::fileOf(random.rows(rows));
        const auto announced = qint16(std::max(0, rows - random.number(9) / 8));
        const QByteArray damaged = random.damaged(sound);
        for (const QByteArray &bytes : {sound, damaged, damaged.first(random.number(int(damaged.size())))}) {
            expectTheSame(bytes, page, announced);
            plain += plainRows(bytes, page);
            whole += readGrid(bytes, page, announced).outcome ? 1 : 0;
        }
        ASSERT_FALSE(::testing::Test::HasFailure()) << "seed " << seed;
    }
    EXPECT_GT(plain, int(files)); // else only one road was taken
    EXPECT_GT(whole, int(files));
    EXPECT_LT(whole, int(files) * 3);
}

/// Texts that are as odd as a save can write them, between plain rows
TEST(GridRow, isWhatIsShownOfAnOddRecord)
{
    for (quint32 seed = 0; seed < 200; ++seed) {
        const AnsiCodePage &page = AnsiCodePage::page(seed % 2 == 0 ? 932 : 1252);
        RandomDocument random(seed, page.number() == 932);
        QByteArray bytes = "[Paramater]\r\n";
        for (const PrRecord &record : random.records(6)) {
            bytes += encodeRow(record, page).value_or(QByteArray()) + PlainRows(seed).rows(1).join();
        }
        expectTheSame(bytes, page, 12);
        ASSERT_FALSE(::testing::Test::HasFailure()) << "seed " << seed;
    }
}

/// Every function code, and ranges of each kind
TEST(GridRow, showsNumbersAsTheyAre)
{
    const AnsiCodePage &page = AnsiCodePage::page(1252);
    QByteArray bytes = "[Paramater]\r\n";
    for (int code = -32768; code <= 32767; code += 13) {
        bytes += "0,1,0,a,,1,-1,0.001,-0.5," + QByteArray::number(code) + ",1,3,0,0,5,0,1.5,-1\r\n";
    }
    for (const char *bound : {"0.001", "0.0001", "0.00001", "1234567", "123456.7", "12345678", "16777217", "007"}) {
        bytes += QByteArray("0,1,0,a,,1,-1,0.001,-0.5,1,1,1,") + bound + ",-1\r\n";
    }
    expectTheSame(bytes, page, 6000);
    EXPECT_EQ(readGrid(bytes, page, 6000).rows.first(), u"1|a|0,5,1.5-|1|1|No|0.001||-0.5|0|8000|0|"_s);
}

/// Wherever in a text a byte is that is not plain, and however long the text is
TEST(GridRow, isWhatIsShownWithOneOddByte)
{
    const QByteArray plain = "Torque + boost of 1";
    for (qsizetype length = 1; length <= plain.size(); ++length) {
        for (qsizetype at = 0; at < length; ++at) {
            QByteArray bytes = "[Paramater]\r\n";
            for (const char odd : QByteArrayView("\r\n\t \x1F\"\x7F\x80\xE9\x83\xA1~")) {
                bytes +=
                    "0,1,0," + plain.first(length).replace(at, 1, QByteArray(1, odd)) + ",Hz,1,-1,-1,0,0,0,1,0,10\r\n";
            }
            expectTheSame(bytes, AnsiCodePage::page(1252), 100);
            expectTheSame(bytes, AnsiCodePage::page(932), 100);
            ASSERT_FALSE(::testing::Test::HasFailure()) << length << " " << at;
        }
        const QByteArray row = "0,1,0," + plain.first(length).trimmed() + ",Hz,1,-1,-1,0,0,0,1,0,10\r\n";
        EXPECT_EQ(plainRows("[Paramater]\r\n" + row, AnsiCodePage::page(1252)), 1) << length;
    }
}

TEST(GridRow, isMissingFromAFileWithoutRows)
{
    expectTheSame("[Inverter]\r\n", AnsiCodePage::page(932), 1);
    expectTheSame("[Paramater]\r\n", AnsiCodePage::page(932), -1);
    expectTheSame("[Paramater]\r\n", AnsiCodePage::page(932), 3);
}

} // namespace
