// Files that want to take the program's time and memory: both stay in proportion to the file's size.

#include "document/DocumentTables.h"
#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "runtime/NumberText.h"
#include "runtime/PrivateProfile.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/GrowthOfWork.h"
#include "tests/support/MemoryInUse.h"
#include "tests/support/QtPrinters.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int growth = 8;
constexpr double maxWork = 3 * growth; // work by the square of the size would be growth * growth

QString repeated(const QString &text, int units)
{
    return text.isEmpty() ? QString() : text.repeated(units / int(text.size()));
}

struct LongText
{
    const char *what;
    QString unit; ///< again and again
    QString before = {}; ///< as long as these, and before them
    QString between = {};

    QString ofLength(int units) const { return repeated(before, units) + between + repeated(unit, units); }
};

void PrintTo(const LongText &text, std::ostream *out)
{
    *out << text.what;
}

class LongTexts : public testing::TestWithParam<LongText>
{
};

} // namespace

TEST_P(LongTexts, areConvertedInProportionToTheirLength)
{
    constexpr int length = 20'000;
    const auto convert = [](int units) {
        const QString text = GetParam().ofLength(units);
        conditionsFromText(text);
        static_cast<void>(rangesFromText(text));
        NormalizeNumText(text);
        static_cast<void>(numericValue(text));
        static_cast<void>(hexToInt16(text));
        PrivateProfile("[Inverter]\r\nName=" + text.toLatin1()).value(u"Inverter"_s, u"Name"_s, 128);
        PrivateProfile(text.toLatin1()).value(u"Inverter"_s, u"Name"_s, 128);
    };
    EXPECT_LT(growthOfWork(convert, length, growth), maxWork);
}

INSTANTIATE_TEST_SUITE_P(Texts, LongTexts,
    testing::ValuesIn(std::vector<LongText>{
        {"a long subject, then dashes", u"-"_s, u"0"_s, u"="_s},
        {"no subject, then relations", u"="_s, u"1"_s, u"x"_s},
        {"a subject that never comes", u"=x"_s, u"1"_s, {}},
        {"a number too large, again and again", u"/9"_s, u"9"_s, {}},
        {"items of the worst length", QString(300, u'1') + u"=x"_s.repeated(150) + u','},
        {"conditions", u"79=1-3,"_s},
        {"ranges", u"0-1,"_s},
        {"dashes", u"-"_s},
        {"commas", u","_s},
        {"blanks", u" "_s},
        {"digits", u"7"_s},
        {"lines", u"a=b\r\n"_s},
        {"sections", u"[a]\n"_s},
        {"brackets", u"[\n"_s},
        {"quotes", u"\""_s},
    }));

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
    constexpr qint64 maxBytes = 200'000; // what one row claims would take 256 KB to 3 MB
    const QByteArray complete = QByteArray("0,1,2,n,u,1,-1,-1,0,0,0,0,").repeated(rows);
    const QString file = put(fileWithRows(complete + GetParam().rows, rows + 1));
    const qint64 before = bytesInUse();
    EXPECT_FALSE(read(file));
    EXPECT_EQ(PrRecords.size(), rows + 1);
    EXPECT_LT(bytesInUse(), before + maxBytes);
    EXPECT_EQ(host.messages, QStringList(u"Input past end of file"_s));
}

INSTANTIATE_TEST_SUITE_P(Rows, ClaimingRow,
    testing::ValuesIn(std::vector<Claim>{
        {"ranges", "0,1,2,n,u,1,-1,-1,0,0,0,32767,0,1\r\n"},
        {"conditions", "32767,1,2,n,u,1,-1,-1,0,0,0,0,79,0,1\r\n"},
        {"both", "32767,1,2,n,u,1,-1,-1,0,0,0,32767,0,1\r\n"},
    }));

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

TEST_F(HostileFile, ofManyCapacitiesIsReadOnceThrough)
{
    constexpr int few = 2'000;
    const auto readMany = [this](int entries) {
        QByteArray section = "[Inverter]\r\nName=X\r\nParamater=0\r\n";
        for (int i = entries; --i >= 0;) { // backwards: every look-up would have to pass the others
            const QByteArray number = QByteArray::number(i);
            section += "Capacity" + number + "=1\r\nICapacity" + number + "=2\r\nOption" + number + "=A\r\n";
        }
        MachineInfos[docNo] = {};
        EXPECT_TRUE(readBytes(section + "[Paramater]\r\n"));
        EXPECT_EQ(MachineInfos[docNo].Option.size(), entries);
    };
    EXPECT_LT(growthOfWork(readMany, few, growth), maxWork);
}
