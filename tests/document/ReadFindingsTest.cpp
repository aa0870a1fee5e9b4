#include "document/DocumentTables.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/QtPrinters.h"

using namespace Qt::StringLiterals;

static void PrintTo(const ReadFindings &findings, std::ostream *out)
{
    *out << "announced " << findings.rowsAnnounced << ", found " << findings.rowsFound << ", cut row "
         << findings.cutRow << " at " << findings.cutRowAt << ", unread " << findings.bytesUnread;
}

namespace {

const QByteArray section = fileWithRows("", 3);
const QByteArray ranged = "0,1,2,n,u,1,-1,-1,0,0,0,1,0,30\r\n";
const QByteArray conditional = "1,1,2,n,u,1,-1,-1,0,0,0,1,0,30,79,2,1,30\r\n";
const QByteArray bare = "0,1,2,n,u,1,-1,-1,0,0,0,0,";

struct Broken
{
    const char *what;
    QByteArray rows;
    bool isRead;
    bool isWhole;
    ReadFindings findings;
};

void PrintTo(const Broken &broken, std::ostream *out)
{
    *out << broken.what;
}

class Findings : public DocumentFixture, public testing::WithParamInterface<Broken>
{
};

qint64 at(qsizetype offset)
{
    return section.size() + offset;
}

const Broken files[] = {
    {"Whole", ranged + conditional + bare, true, true, {3, 3}},
    {"ARowMore", ranged + ranged + ranged + ranged, true, true, {3, 4}},
    {"NoRows", "", true, false, {3, 0}},
    {"ARowLess", ranged + bare, true, false, {3, 2}},
    {"CutInARange", (ranged + ranged + ranged).chopped(3), true, false, {3, 3, 3, at(2 * ranged.size())}},
    {"CutAfterARange", (ranged + ranged + ranged).chopped(2), true, false, {3, 3, 3, at(2 * ranged.size())}},
    {"CutWithinALineEnd", (ranged + ranged + ranged).chopped(1), false, false, {3, 4, 4, at(3 * ranged.size() - 2)}},
    {"CutInACondition", ranged + conditional.chopped(3), true, false, {3, 2, 2, at(ranged.size())}},
    {"CutAfterACount", ranged + bare.chopped(1), true, false, {3, 2, 2, at(ranged.size())}},
    {"CutInAName", ranged + "0,1,2,n", false, false, {3, 2, 2, at(ranged.size())}},
    {"CutAfterAName", ranged + "0,1,2,n,", false, false, {3, 2, 2, at(ranged.size())}},
    {"CutInTheFirstNumber", "0", false, false, {3, 1, 1, at(0)}},
    {"QuoteWithoutEnd", ranged + "0,1,2,\"n,u,1,-1\r\n", false, false, {3, 2, 2, at(ranged.size())}},
    {"TooManyRows", ranged.repeated(6), false, false, {3, 4, 0, 0, 2 * ranged.size()}},
    {"ANegativeCount", ranged + "0,1,2,n,u,1,-1,-1,0,0,0,-1,rest", false, false, {3, 2, 0, 0, 4}},
};

} // namespace

TEST_P(Findings, areKeptBesideTheDocument)
{
    EXPECT_EQ(readBytes(section + GetParam().rows), GetParam().isRead);
    ASSERT_TRUE(documentOrigin(docNo).findings);
    EXPECT_EQ(*documentOrigin(docNo).findings, GetParam().findings);
    EXPECT_EQ(documentOrigin(docNo).findings->isWhole(), GetParam().isWhole);
    EXPECT_EQ(host.messages.isEmpty(), GetParam().isRead);
}

INSTANTIATE_TEST_SUITE_P(
    Files, Findings, testing::ValuesIn(files), [](const auto &test) { return std::string(test.param.what); });

TEST_F(Findings, areOfTheLastReadingOnly)
{
    ASSERT_TRUE(readBytes(section + ranged));
    EXPECT_FALSE(readBytes("[Inverter]\r\nName=a\r\n")); // comes to no rows
    EXPECT_EQ(documentOrigin(docNo).findings, std::nullopt);
    ASSERT_TRUE(readBytes(section + ranged));
    EXPECT_FALSE(read(path(u"missing.inv"_s)));
    EXPECT_EQ(documentOrigin(docNo).findings, std::nullopt);
}

TEST_F(Findings, areVoidOnceTheDocumentIsSaved)
{
    ASSERT_TRUE(readBytes(section + ranged));
    EXPECT_FALSE(save(path(u"no/folder.inv"_s)));
    EXPECT_TRUE(documentOrigin(docNo).findings);
    ASSERT_TRUE(save(path(u"saved.inv"_s)));
    EXPECT_EQ(documentOrigin(docNo).findings, std::nullopt);
}
