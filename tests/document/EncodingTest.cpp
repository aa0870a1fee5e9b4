#include "document/DocumentTables.h"
#include "runtime/AnsiText.h"
#include "tests/document/DocumentFixture.h"
#include "tests/document/RecordPrinters.h"
#include "tests/support/QtPrinters.h"

using namespace Qt::StringLiterals;

namespace {

class Encoding : public DocumentFixture
{
protected:
    /// A file with one row per text, which is in the middle of the row's name.
    static QByteArray fileWithNames(const QList<QByteArray> &names)
    {
        QByteArray rows;
        for (const QByteArray &name : names) {
            rows += "0,1,2,." + name + ".,u,1,-1,-1,0,0,0,1,5,6\r\n";
        }
        return "[Inverter]\r\nName=XT\r\nTypeCode=\r\nVCapacity=\r\nCode=\r\nSoftWareVersion=\r\nParamater="
            + QByteArray::number(names.size()) + "\r\n[Paramater]\r\n" + rows;
    }

    /// Every byte that may be inside a field.
    static QList<QByteArray> fieldBytes()
    {
        QList<QByteArray> bytes;
        for (int byte = 0; byte <= 0xFF; ++byte) {
            if (byte != ',' && byte != '\n') {
                bytes << QByteArray(1, static_cast<char>(byte));
            }
        }
        return bytes;
    }
};

TEST_F(Encoding, keepsEveryByteOfPage1252)
{
    const QByteArray file = fileWithNames(fieldBytes());
    EXPECT_TRUE(sameBytes(throughTheProgram(file), file));
}

TEST_F(Encoding, keepsEveryByteOfPage932)
{
    setAnsiCodePageNumber(932);
    const QByteArray file = fileWithNames(fieldBytes());
    EXPECT_TRUE(sameBytes(throughTheProgram(file), file));
}

/// All pairs of a lead byte and a byte that may follow it, but for those in the rows where makers' codes overlap.
TEST_F(Encoding, keepsEveryTwoByteCodeOfPage932AndEveryPairThatIsNone)
{
    setAnsiCodePageNumber(932);
    const auto isOverlapping = [](int lead) { return lead == 0x87 || lead == 0xED || lead == 0xEE || lead == 0xFA; };
    QList<QByteArray> pairs;
    for (int lead = 0x80; lead <= 0xFF; ++lead) {
        for (int trail = 0x2D; trail <= 0xFF && !isOverlapping(lead); ++trail) {
            const char pair[] = {static_cast<char>(lead), static_cast<char>(trail)};
            pairs << QByteArray(pair, 2);
        }
    }
    const QList<QByteArray> overlapping = {"\xFA\x5C\xFC\x4B", "\xFB\xFC", "\xFC\x4C\xFC\xFC"};
    const QByteArray file = fileWithNames(pairs + overlapping);
    EXPECT_TRUE(sameBytes(throughTheProgram(file), file));
}

TEST_F(Encoding, savesADoubledCodeAsTheOneThatTheSystemWrites)
{
    setAnsiCodePageNumber(932);
    EXPECT_EQ(throughTheProgram(fileWithNames({"\x87\x90", "\xED\x40", "\xFA\x4A", "\xEE\xF9"})),
        fileWithNames({"\x81\xE0", "\xFA\x5C", "\x87\x54", "\x81\xCA"}));
}

TEST_F(Encoding, keepsUndecodableBytesInTheMachineInformation)
{
    const QByteArray file = fileWithNames({"x"}).replace("Name=XT", "Name=X\x81\x8D\x90T");
    EXPECT_TRUE(sameBytes(throughTheProgram(file), file));
}

TEST_F(Encoding, keepsHalfACharacterAtAFieldsEnd)
{
    setAnsiCodePageNumber(932);
    QByteArray file = fileWithNames({"x"});
    file.replace(",u,", ",\x83,");
    EXPECT_TRUE(sameBytes(throughTheProgram(file), file));
}

} // namespace
