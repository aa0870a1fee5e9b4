#include "document/DocumentTables.h"
#include "runtime/AnsiText.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/QtPrinters.h"

#include <QFile>
#include <QSet>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct ExampleFile
{
    const char *name;
    int codePage;
    int rows;
};

void PrintTo(const ExampleFile &example, std::ostream *out)
{
    *out << example.name;
}

class Example : public DocumentFixture, public testing::WithParamInterface<ExampleFile>
{
protected:
    Example() { setAnsiCodePageNumber(GetParam().codePage); }
    ~Example() override { setAnsiCodePageNumber(0); }

    QByteArray bytes = contentOf(QStringLiteral(TABRIX_EXAMPLES_FOLDER "/") + QString::fromLatin1(GetParam().name));
};

class FullSizeExample : public Example
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(readBytes(bytes));
        ASSERT_EQ(PrRecords.size(), GetParam().rows + 1);
        rows = PrRecords.first(GetParam().rows);
    }

    auto count(auto condition) const { return std::ranges::count_if(rows, condition); }

    QList<PrRecord> rows;
};

} // namespace

TEST_P(Example, isNotChangedByOpeningAndSavingIt)
{
    ASSERT_FALSE(bytes.isEmpty());
    EXPECT_EQ(throughTheProgram(bytes), bytes);
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_P(Example, saysHowManyRowsItHas)
{
    ASSERT_TRUE(readBytes(bytes));
    EXPECT_EQ(MachineInfos[docNo].Paramater, GetParam().rows);
    ASSERT_EQ(PrRecords.size(), GetParam().rows + 1);
    EXPECT_FALSE(PrRecords[GetParam().rows - 1].number.isEmpty());
    EXPECT_EQ(PrRecords.last(), PrRecord());
}

INSTANTIATE_TEST_SUITE_P(Files, Example,
    testing::ValuesIn(std::vector<ExampleFile>{
        {"XT200.INV", 1252, 429},
        {"KQM3V.INV", 932, 360},
        {"three-rows.inv", 1252, 3},
    }));

TEST_P(FullSizeExample, numbersItsParametersUpwardsWithGaps)
{
    QList<int> numbers;
    for (const PrRecord &row : rows) {
        numbers << row.number.toInt();
    }
    EXPECT_TRUE(std::ranges::is_sorted(numbers, std::ranges::less_equal()));
    EXPECT_GE(numbers.first(), 0);
    EXPECT_LE(numbers.last(), 999);
    EXPECT_GT(numbers.last() - numbers.first(), numbers.size());
}

TEST_P(FullSizeExample, namesEveryParameterDifferently)
{
    QSet<QString> names;
    for (const PrRecord &row : rows) {
        names.insert(row.name);
        EXPECT_FALSE(row.name.isEmpty() || row.name.contains(u','));
    }
    EXPECT_EQ(names.size(), rows.size());
}

TEST_P(FullSizeExample, holdsEveryKindOfRow)
{
    EXPECT_GT(count([](const PrRecord &row) { return row.rangeCount > 1; }), 50);
    EXPECT_GT(count([](const PrRecord &row) { return row.conditionCount > 1; }), 50);
    EXPECT_GT(count([](const PrRecord &row) { return row.rangeCount == 0 && row.conditionCount == 0; }), 3);
    EXPECT_GT(count([](const PrRecord &row) { return row.rangeCount == 0 && row.conditionCount > 0; }), 3);
    EXPECT_GT(count([](const PrRecord &row) { return row.functionCode.toInt() < 0; }), 10);
    EXPECT_GT(count([](const PrRecord &row) { return row.min2 != u"-1"; }), 10);
}

TEST_P(FullSizeExample, usesConditionsOfEveryKindOnParametersThatItHas)
{
    QSet<QString> numbers;
    QSet<QString> kinds;
    for (const PrRecord &row : rows) {
        numbers.insert(row.number);
    }
    for (const PrRecord &row : rows) {
        for (const PrCondition &condition : row.conditions) {
            const bool named = condition.subject == u"MODE" || condition.subject == u"OP";
            EXPECT_TRUE(named || numbers.contains(condition.subject)) << row.number.toStdString();
            kinds.insert((named ? condition.subject : u"Pr"_s) + QString::number(condition.kind));
        }
    }
    EXPECT_TRUE(
        kinds.contains(QSet<QString>{u"MODE0"_s, u"MODE1"_s, u"OP0"_s, u"OP1"_s, u"Pr0"_s, u"Pr1"_s, u"Pr2"_s}));
}

INSTANTIATE_TEST_SUITE_P(
    Files, FullSizeExample, testing::Values(ExampleFile{"XT200.INV", 1252, 429}, ExampleFile{"KQM3V.INV", 932, 360}));

TEST(ExampleCharacters, areAsciiInTheEnglishAndKanjiAndHalfWidthKatakanaInTheJapaneseFile)
{
    const auto content = [](const QString &name) {
        QFile file(QStringLiteral(TABRIX_EXAMPLES_FOLDER "/") + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    EXPECT_TRUE(isAscii(content(u"XT200.INV"_s)));
    const QString japanese = AnsiCodePage::page(932).decode(content(u"KQM3V.INV"_s));
    EXPECT_TRUE(std::ranges::any_of(japanese, [](QChar c) { return c >= QChar(0xFF66) && c <= QChar(0xFF9F); }));
    EXPECT_TRUE(std::ranges::any_of(japanese, [](QChar c) { return c.script() == QChar::Script_Han; }));
    EXPECT_FALSE(std::ranges::any_of(japanese, [](QChar c) { return c >= QChar(0xF780) && c <= QChar(0xF7FF); }));
}
