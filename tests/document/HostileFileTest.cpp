// Files that want to take the program's time and memory: both stay in proportion to the file's size.

#include "document/DocumentTables.h"
#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "runtime/NumberText.h"
#include "runtime/PrivateProfile.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/QtPrinters.h"

#include <QElapsedTimer>

#include <malloc.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int longText = 1'000'000;

QString repeated(const QString &text, int units)
{
    return text.repeated(units / int(text.size()));
}

struct LongText
{
    const char *what;
    QString text;
};

void PrintTo(const LongText &text, std::ostream *out)
{
    *out << text.what;
}

class TextsOfAMillion : public testing::TestWithParam<LongText>
{
};

size_t bytesInUse()
{
    return mallinfo2().uordblks + mallinfo2().hblkhd;
}

} // namespace

/// What needs time by the square of the length takes minutes to hours here.
TEST_P(TextsOfAMillion, areConvertedAtOnce)
{
    constexpr qint64 mostMilliseconds = 10'000;
    const QString &text = GetParam().text;
    QElapsedTimer timer;
    timer.start();
    conditionsFromText(text);
    static_cast<void>(rangesFromText(text));
    NormalizeNumText(text);
    static_cast<void>(numericValue(text));
    static_cast<void>(hexToInt16(text));
    PrivateProfile("[Inverter]\r\nName=" + text.toLatin1()).value(u"Inverter"_s, u"Name"_s, 128);
    PrivateProfile(text.toLatin1()).value(u"Inverter"_s, u"Name"_s, 128);
    EXPECT_LT(timer.elapsed(), mostMilliseconds);
}

INSTANTIATE_TEST_SUITE_P(Texts, TextsOfAMillion,
    testing::Values(
        LongText{"a long subject, then dashes", repeated(u"0"_s, longText / 2) + u'=' + repeated(u"-"_s, longText / 2)},
        LongText{"no subject, then relations", repeated(u"1"_s, longText / 2) + u'x' + repeated(u"="_s, longText / 2)},
        LongText{"a subject that never comes", repeated(u"1"_s, longText / 2) + repeated(u"=x"_s, longText / 2)},
        LongText{
            "a number too large, again and again", repeated(u"9"_s, longText / 2) + repeated(u"/9"_s, longText / 2)},
        LongText{
            "items of the worst length", repeated(repeated(u"1"_s, 300) + repeated(u"=x"_s, 300) + u',', longText)},
        LongText{"conditions", repeated(u"79=1-3,"_s, longText)}, LongText{"ranges", repeated(u"0-1,"_s, longText)},
        LongText{"dashes", repeated(u"-"_s, longText)}, LongText{"commas", repeated(u","_s, longText)},
        LongText{"blanks", repeated(u" "_s, longText)}, LongText{"digits", repeated(u"7"_s, longText)},
        LongText{"lines", repeated(u"a=b\r\n"_s, longText)}, LongText{"sections", repeated(u"[a]\n"_s, longText)},
        LongText{"brackets", repeated(u"[\n"_s, longText)}, LongText{"quotes", repeated(u"\""_s, longText)}));

namespace {

struct Claim
{
    const char *what;
    QByteArray rows;
};

void PrintTo(const Claim &claim, std::ostream *out)
{
    *out << claim.what;
}

class ClaimingRow : public DocumentFixture, public testing::WithParamInterface<Claim>
{
};

} // namespace

/// The rows that claim as much as a count can hold, and end at once.
TEST_P(ClaimingRow, takesMemoryForWhatIsThere)
{
    constexpr int rows = 100;
    constexpr size_t mostBytes = 200'000; // what one row claims would take 256 KB to 3 MB
    const QByteArray complete = QByteArray("0,1,2,n,u,1,-1,-1,0,0,0,0,").repeated(rows);
    const QString file = put(fileWithRows(complete + GetParam().rows, rows + 1));
    const size_t before = bytesInUse();
    EXPECT_FALSE(read(file));
    EXPECT_EQ(PrRecords.size(), rows + 1);
    EXPECT_LT(bytesInUse(), before + mostBytes);
    EXPECT_EQ(host.messages, QStringList(u"Input past end of file"_s));
}

INSTANTIATE_TEST_SUITE_P(Rows, ClaimingRow,
    testing::Values(Claim{"ranges", "0,1,2,n,u,1,-1,-1,0,0,0,32767,0,1\r\n"},
        Claim{"conditions", "32767,1,2,n,u,1,-1,-1,0,0,0,0,79,0,1\r\n"},
        Claim{"both", "32767,1,2,n,u,1,-1,-1,0,0,0,32767,0,1\r\n"}));

namespace {

class HostileFile : public DocumentFixture
{
};

} // namespace

TEST_F(HostileFile, withAQuoteThatIsNeverClosedIsOneLongTextAndAnError)
{
    const QByteArray rows =
        "0,1,2,\"n,u,1,-1,-1,0,0,0,0,\r\n" + QByteArray("0,2,3,n,u,1,-1,-1,0,0,0,0,\r\n").repeated(9'999);
    EXPECT_FALSE(readBytes(fileWithRows(rows, 10'000)));
    EXPECT_EQ(PrRecords.size(), 1);
    EXPECT_EQ(host.messages, QStringList(u"Input past end of file"_s));
}

TEST_F(HostileFile, ofFiftyThousandCapacitiesIsReadOnceThrough)
{
    constexpr int entries = 50'000;
    QByteArray section = "[Inverter]\r\nName=X\r\nParamater=0\r\n";
    for (int i = entries; --i >= 0;) { // backwards: every look-up would have to pass the others
        const QByteArray number = QByteArray::number(i);
        section += "Capacity" + number + "=1\r\nICapacity" + number + "=2\r\nOption" + number + "=A\r\n";
    }
    QElapsedTimer timer;
    timer.start();
    EXPECT_TRUE(readBytes(section + "[Paramater]\r\n"));
    EXPECT_EQ(MachineInfos[docNo].Option.size(), entries);
    EXPECT_LT(timer.elapsed(), 10'000);
}
