#include "document/RewriteCheck.h"

#include "runtime/AnsiText.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/QtPrinters.h"

using namespace Qt::StringLiterals;

static void PrintTo(const RewriteFinding &finding, std::ostream *out)
{
    *out << "row " << finding.position.row << ", field " << finding.position.field << " at " << finding.position.offset
         << ": \"" << finding.inFile.toStdString() << "\" as \"" << finding.written.toStdString() << '"';
}

namespace {

const QByteArray plain = "1,79,1079,name,%,0.1,-1,-1,6,3,1,1,0,30,MODE,1,1\r\n";

struct Rewritten
{
    const char *what;
    QByteArray row; ///< the second one, after a plain row
    QList<RewriteFinding> findings; ///< offsets from the row on
};

void PrintTo(const Rewritten &rewritten, std::ostream *out)
{
    *out << rewritten.what;
}

class Rewrites : public testing::TestWithParam<Rewritten>
{
};

RewriteFinding finding(int field, int offset, const QString &inFile, const QString &written)
{
    return {{2, field, offset}, inFile, written};
}

// clang-format off
const Rewritten rows[] = {
    {"Nothing", plain, {}},
    {"NoEnd", "0,1,2,n,u,1,-1,-1,0,0,0,0,", {}},
    {"Increment", "0,1,2,n,u,2,-1,0.10,0,0,0,1,0,30\r\n", {finding(6, 10, u"2"_s, u"1"_s), finding(8, 15, u"0.10"_s, u"-1"_s)}},
    {"FactorySetting", "0,1,2,n,u,1,-1,-1,007,0,0,1,0,30\r\n", {finding(9, 18, u"007"_s, u"7"_s)}},
    {"FunctionCode", "0,1,2,n,u,1,-1,-1,0,65535,0,1,0,30\r\n", {finding(10, 20, u"65535"_s, u"-1"_s)}},
    {"RangeCheck", "0,1,2,n,u,1,-1,-1,0,0,5,1,0,30\r\n", {finding(11, 22, u"5"_s, u"1"_s)}},
    {"QuotesAndSpaces", "0,\"1\",2, n ,u,1,-1,-1,0,0,0,1,0,30\r\n", {finding(2, 2, u"\"1\""_s, u"1"_s), finding(4, 8, u" n "_s, u"n"_s)}},
    {"Bounds", "0,1,2,n,u,1,-1,-1,0,0,0,2,0.50,30,400,300\r\n", {finding(13, 26, u"0.50"_s, u"0.5"_s), finding(16, 38, u"300"_s, u"0"_s)}},
    {"ADroppedCondition", "1,1,2,n,u,1,-1,-1,0,0,0,1,0,30,X,0,1\r\n",
        {finding(1, 0, u"1"_s, u"0"_s), finding(15, 31, u"X"_s, {}), finding(16, 33, u"0"_s, {}), finding(17, 35, u"1"_s, {})}},
};
// clang-format on

} // namespace

TEST_P(Rewrites, areTheFieldsThatASaveWritesDifferently)
{
    const QByteArray file = fileWithRows(plain + GetParam().row, 2);
    QList<RewriteFinding> expected = GetParam().findings;
    for (RewriteFinding &each : expected) {
        each.position.offset += file.size() - GetParam().row.size();
    }
    EXPECT_EQ(findRewrites(file, AnsiCodePage::page(1252)), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Rewrites, testing::ValuesIn(rows), [](const auto &test) { return std::string(test.param.what); });

TEST(RewriteCheck, looksAtTheRowsThatAreShownAndCanBeRead)
{
    const QByteArray odd = "0,01,2,n,u,1,-1,-1,007,0,0,1,0,30\r\n";
    const AnsiCodePage &page = AnsiCodePage::page(1252);
    EXPECT_EQ(findRewrites(fileWithRows(plain + odd, 1), page), QList<RewriteFinding>());
    EXPECT_EQ(findRewrites(fileWithRows(odd + "0,broken", 2), page).size(), 1);
    EXPECT_EQ(findRewrites("[Inverter]\r\nName=XT\r\nParamater=1\r\n", page), QList<RewriteFinding>());
}
