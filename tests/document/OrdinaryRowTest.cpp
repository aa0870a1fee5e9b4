#include "document/OrdinaryRow.h"

#include "document/FieldText.h"
#include "document/ParameterColumns.h"
#include "document/PrFileCodec.h"
#include "document/RowCollector.h"
#include "runtime/AnsiText.h"
#include "tests/document/FakeGrid.h"
#include "tests/document/RandomDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int codePages[] = {1252, 932};

bool isOrdinary(const QStringList &cells, int codePage)
{
    FakeGrid grid;
    grid.rows << cells;
    QByteArray bytes(maxOrdinaryRowBytes(grid.rowTexts(1)), '\0');
    const char *end = encodeOrdinaryRow(grid.rowTexts(1), AnsiCodePage::page(codePage), bytes.data());
    EXPECT_LE(end - bytes.constData(), bytes.size());
    return end != nullptr;
}

/// Whether a row alone has the file, and the findings, that it gets when each of its numbers is converted and written
/// again.
void expectTheSameFile(const QStringList &cells, int codePage)
{
    MachineInfo machine;
    machine.Name = u"XT"_s;
    FakeGrid grid;
    grid.rows << cells;
    const EncodedGrid encoded = encodePrFile(GridDocument{machine, grid, codePage});
    RowCollector collector(grid);
    const auto collected = collector.collect(1);
    if (!collected) {
        EXPECT_EQ(encoded.outcome, collected) << cells.join(u'|').toStdString();
        return;
    }
    const RowFields &fields = collector.fields();
    PrRecord record;
    record.conditionCount = fields.conditionCount;
    record.rangeCount = fields.rangeCount;
    record.ranges = {fields.ranges.begin(), fields.ranges.end()};
    record.conditions = {fields.conditions.begin(), fields.conditions.end()};
    for (std::size_t i = 0; i < fileTexts.size(); ++i) {
        record.*fileTexts.at(i) = fields.texts.at(i).toString();
    }
    const EncodedPrFile whole = encodePrFile(Document{.machine = machine, .rows = {record}, .codePage = codePage});
    EXPECT_EQ(encoded.bytes, whole.bytes) << cells.join(u'|').toStdString();
    EXPECT_EQ(bool(encoded.outcome), bool(whole.outcome)) << cells.join(u'|').toStdString();
    EXPECT_EQ(encoded.findings, findReadBackFaults(machine, {record}, AnsiCodePage::page(codePage)));
}

/// Texts for a column, from 1, some of which a file has as they are.
QString randomText(RandomDocument &random, int column)
{
    switch (column) {
    case ParameterColumn::SettingRange:
        return random.textOf(u"0123459.,--", 11);
    case ParameterColumn::Condition: {
        QString text = random.number(1) == 0
            ? random.textOf(u"0129,=/==--M", 11)
            : random.textOf(u"12", 2) + u'=' + random.textOf(u"12", 2) + u'-' + random.textOf(u"12", 2);
        return text.replace(u"M"_s, u"MODE"_s);
    }
    case ParameterColumn::Min1:
    case ParameterColumn::Min2:
    case ParameterColumn::Min3:
        return QStringList{
            u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s, u"0.0"_s, u"No"_s, u"-1"_s, u""_s}[random.number(7)];
    case ParameterColumn::RangeCheck:
        return QStringList{u"1"_s, u"0"_s, u"2"_s, u""_s}[random.number(3)];
    case ParameterColumn::FactorySetting:
        return random.textOf(u"0125.-", 5);
    case ParameterColumn::FuncCode:
        return random.textOf(u"012AFg", 5);
    default:
        return random.textOf(u"aB9 %\",\r\n\u00E9\u8868\uF781\u0416", 4);
    }
}

// One cell of an ordinary row is another at a time, and sometimes all.
TEST(OrdinaryRow, isEncodedAsEveryRowIs)
{
    RandomDocument random(1, false);
    const QStringList row{u"1000"_s, u"Torque boost"_s, u"0-30.5,9999"_s, u"1"_s, u"0.1"_s, u"No"_s, u"No"_s, u"%"_s,
        u"6.5"_s, u"2000"_s, u"000A"_s, u"2"_s, u"MODE/1,160=1-3"_s};
    std::map<int, int> ordinary;
    for (const int codePage : codePages) {
        ASSERT_TRUE(isOrdinary(row, codePage));
        expectTheSameFile(row, codePage);
        for (int i = 0; i < 2'600; ++i) {
            const int column = 1 + i % FakeGrid::columns;
            QStringList changed = row;
            changed[column - 1] = randomText(random, column);
            ordinary[column] += isOrdinary(changed, codePage) ? 1 : 0;
            expectTheSameFile(changed, codePage);
            for (int other = 1; other <= FakeGrid::columns && i % 4 == 0; ++other) {
                changed[other - 1] = randomText(random, other);
            }
            expectTheSameFile(changed, codePage);
            ASSERT_FALSE(::testing::Test::HasFailure());
        }
    }
    for (int column = 1; column <= FakeGrid::columns; ++column) {
        EXPECT_GT(ordinary[column], 10) << "column " << column;
    }
}

// Wherever in a text a character is that is not plain, and however long the text is.
TEST(OrdinaryRow, isEncodedAsEveryRowIsWithOneOddCharacter)
{
    QStringList row{u"1000"_s, u"Jog"_s, u"0-30.5"_s, u"1"_s, u"0.1"_s, u"No"_s, u"No"_s, u"%"_s, u"6.5"_s, u"0"_s,
        u"000A"_s, u"0"_s, u""_s};
    const QString plain = u"Torque + boost"_s;
    for (qsizetype length = 1; length <= plain.size(); ++length) {
        for (qsizetype at = 0; at < length; ++at) {
            for (const QChar odd : u",\r\n\t \u001F\"\u007F\u0080\u00E9\u012C\u8868\uF781~"_s) {
                row[ParameterColumn::Name - 1] = plain.first(length).replace(at, 1, odd);
                for (const int codePage : codePages) {
                    expectTheSameFile(row, codePage);
                    EXPECT_FALSE(isOrdinary(row, codePage) && (odd == u',' || odd < u' '));
                }
            }
            ASSERT_FALSE(::testing::Test::HasFailure());
        }
        row[ParameterColumn::Name - 1] = plain.first(length).trimmed();
        EXPECT_TRUE(isOrdinary(row, 1252)) << length;
    }
}

TEST(OrdinaryRow, boundsAreThoseThatASingleGivesBack)
{
    QStringList row = FakeGrid::emptyRow();
    row[ParameterColumn::RangeCheck - 1] = u"0"_s;
    row[ParameterColumn::FactorySetting - 1] = u"0"_s;
    int taken = 0;
    for (int digits = 0; digits < 100'000; ++digits) {
        const int decimals = digits % 5;
        const QString text = QString::number(digits / std::pow(10, decimals), 'f', decimals);
        row[ParameterColumn::SettingRange - 1] = text;
        if (isOrdinary(row, 1252)) {
            ++taken;
            ASSERT_EQ(SingleToText(text.toFloat()), text);
        }
    }
    EXPECT_GT(taken, 70'000);
}

TEST(OrdinaryRow, isOneInTenOfARandomDocumentAtLeast)
{
    int ordinary = 0;
    int all = 0;
    for (quint32 seed = 0; seed < 50; ++seed) {
        const QList<PrRecord> records = RandomDocument(seed, true).records(12);
        for (const QStringList &row : FakeGrid(records, records.size()).rows) {
            ordinary += isOrdinary(row, 932) ? 1 : 0;
            ++all;
            expectTheSameFile(row, 932);
        }
    }
    EXPECT_GT(ordinary * 10, all);
}

} // namespace
