#include "check/FileCheck.h"
#include "check/FileRows.h"
#include "document/PlainRow.h"
#include "document/PrFileCodec.h"
#include "runtime/AnsiText.h"
#include "tests/check/CheckedFiles.h"
#include "tests/document/PlainRows.h"
#include "tests/document/RandomDocument.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool isPlain(const QByteArray &bytes, const AnsiCodePage &page)
{
    FileRows rows({FunctionLabels::Normal, page.number()});
    return rows.read(rowsOfFile(bytes)) && rows.decoded().empty();
}

TEST(PlainFile, isCheckedLikeAnyOther)
{
    int plain = 0;
    int sound = 0;
    constexpr quint32 files = 2000;
    for (quint32 seed = 0; seed < files; ++seed) {
        PlainRows random(seed);
        const AnsiCodePage &page = AnsiCodePage::page(seed % 2 == 0 ? 932 : 1252);
        const QByteArray bytes = random.damaged(PlainRows::fileOf(random.rows(random.number(8))));
        const Findings expected = checkDecodedFile(bytes, page, u"xt.inv"_s);
        plain += isPlain(bytes, page) ? 1 : 0;
        sound += expected.isEmpty() ? 1 : 0;
        const Findings findings = checkFile(bytes, page, u"xt.inv"_s);
        ASSERT_TRUE(findings == expected) << "seed " << seed << "\n"
                                          << bytes.constData() << "\n"
                                          << namesOf(findings).constData() << "\ninstead of\n"
                                          << namesOf(expected).constData();
    }
    EXPECT_GT(plain, int(files) / 4); // else only one road was taken
    EXPECT_LT(plain, int(files));
    EXPECT_GT(sound, 0);
}

/// Files of texts that are as odd as a save can write them
TEST(PlainFile, isCheckedLikeAnyOtherWithOddTexts)
{
    for (quint32 seed = 0; seed < 200; ++seed) {
        const AnsiCodePage &page = AnsiCodePage::page(seed % 2 == 0 ? 932 : 1252);
        RandomDocument random(seed, page.number() == 932);
        Document document{random.machineInfo(), random.records(3), page.number()};
        document.machine.Paramater = qint16(document.rows.size());
        const QByteArray bytes = encodePrFile(document).bytes;
        ASSERT_TRUE(checkFile(bytes, page, u"xt.inv"_s) == checkDecodedFile(bytes, page, u"xt.inv"_s))
            << "seed " << seed;
    }
}

/// Written without its quotes the name becomes two fields, and the row ends in the middle of a range.
TEST(PlainFile, isCheckedWithARowThatASaveBreaksInTwo)
{
    const AnsiCodePage &page = AnsiCodePage::page(1252);
    const QByteArray bytes = PlainRows::fileOf({"0,1,0,\"Jog, slow\",Hz,1,-1,-1,0,0,1,0,"});
    const Findings findings = checkFile(bytes, page, u"xt.inv"_s);
    EXPECT_TRUE(idsOf(findings).contains(CheckId::CommaInText));
    EXPECT_TRUE(findings == checkDecodedFile(bytes, page, u"xt.inv"_s));
}

/// A number's text is plain only if that is how a single is written: of each length, next to each power of two.
TEST(PlainFile, hasBoundsThatComeBack)
{
    int taken = 0;
    for (int decimals = 0; decimals <= 4; ++decimals) {
        for (int digits = 1; digits <= 8; ++digits) {
            RandomDocument random(quint32(digits * 10 + decimals), false);
            for (int i = 0; i < 200; ++i) {
                QByteArray text = QByteArray::number(1 + random.number(int(std::pow(10, digits)) - 2));
                if (decimals > 0) {
                    text = text.rightJustified(decimals + 1, '0');
                    text.insert(text.size() - decimals, '.');
                }
                const QByteArray row = "0,1,0,a,,1,-1,-1,0,0,0,1," + text + ",-1\r\n";
                PlainRowReader reader(row, AnsiCodePage::page(1252));
                if (reader.next()) {
                    ++taken;
                    const QByteArray bytes = "[Inverter]\r\nName=a\r\nParamater=1\r\n[Paramater]\r\n" + row;
                    Document document = decodePrFile(bytes, AnsiCodePage::page(1252)).document;
                    document.rows.resize(1);
                    ASSERT_TRUE(encodePrFile(document).bytes.endsWith(row)) << text.constData();
                }
            }
        }
    }
    EXPECT_GT(taken, 2500);
}

/// What the full road would change, or say something about
TEST(PlainFile, isNoneWithWhatASaveWouldChange)
{
    const QByteArray sound = "0,1,0,Jog,Hz,1,-1,-1,0,0,0,1,0,10\r\n";
    const AnsiCodePage &page = AnsiCodePage::page(1252);
    ASSERT_TRUE(PlainRowReader(sound, page).next());
    const QByteArray others[] = {"00,1,0,Jog,Hz,1,-1,-1,0,0,0,1,0,10\r\n", "0,1,0, Jog,Hz,1,-1,-1,0,0,0,1,0,10\r\n",
        "0,1,0,\"Jog\",Hz,1,-1,-1,0,0,0,1,0,10\r\n", "0,1,0,Jog ,Hz,1,-1,-1,0,0,0,1,0,10\r\n",
        "0,1,0,Jo\ng,Hz,1,-1,-1,0,0,0,1,0,10\r\n", "0,1,0,Jog\x81,Hz,1,-1,-1,0,0,0,1,0,10\r\n",
        "0,1,0,Jog,Hz,-1,-1,-1,0,0,0,1,0,10\r\n", "0,1,0,Jog,Hz,1,No,-1,0,0,0,1,0,10\r\n",
        "0,1,0,Jog,Hz,1,-1,-1,00,0,0,1,0,10\r\n", "0,1,0,Jog,Hz,1,-1,-1,-0,0,0,1,0,10\r\n",
        "0,1,0,Jog,Hz,1,-1,-1,0,65535,0,1,0,10\r\n", "0,1,0,Jog,Hz,1,-1,-1,0,0,2,1,0,10\r\n",
        "0,1,0,Jog,Hz,1,-1,-1,0,0,0,1,10,5\r\n", "0,1,0,Jog,Hz,1,-1,-1,0,0,0,1,-5,5\r\n",
        "0,1,0,Jog,Hz,1,-1,-1,0,0,0,1,0,16777217\r\n", "0,1,0,Jog,Hz,1,-1,-1,0,0,0,1,0,1.50\r\n",
        "0,1,0,Jog,Hz,1,-1,-1,0,0,0,1,0,10\n", "0,1,0,Jog,Hz,1,-1,-1,0,0,0,1,0,10,",
        "0,1,0,Jog,Hz,1,-1,-1,0,0,0,1,0,10", "0,1,0,Jog,Hz,1,-1,-1,0,0,0,0\r\n",
        "1,1,0,Jog,Hz,1,-1,-1,0,0,0,0,2,3,2,1\r\n", "1,1,0,Jog,Hz,1,-1,-1,0,0,0,0,2,2,9,10\r\n",
        "1,1,0,Jog,Hz,1,-1,-1,0,0,0,0,OP,0,\r\n", "1,1,0,Jog,Hz,1,-1,-1,0,0,0,0,MODE,2,1,2\r\n",
        "1,1,0,Jog,Hz,1,-1,-1,0,0,0,0,X,0,1\r\n", "-1,1,0,Jog,Hz,1,-1,-1,0,0,0,0,", "0,1,0,Jog,Hz,1,-1,-1,0,0,0,-1,"};
    for (const QByteArray &row : others) {
        EXPECT_FALSE(PlainRowReader(row, page).next()) << row.constData();
    }
}

} // namespace
