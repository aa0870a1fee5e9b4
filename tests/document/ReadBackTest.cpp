#include "document/DocumentTables.h"
#include "document/ParameterColumn.h"
#include "document/PrFile.h"
#include "runtime/AnsiText.h"
#include "storage/KnownFile.h"
#include "tests/document/DocumentFixture.h"
#include "tests/document/RandomDocument.h"
#include "tests/document/RecordPrinters.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/ThisSystem.h"

#include <ostream>
#include <vector>

using namespace Qt::StringLiterals;

void PrintTo(const ReadBackFinding &finding, std::ostream *out)
{
    *out << "fault " << int(finding.fault) << " in row " << finding.cell.row << ", column " << finding.cell.column
         << ", " << finding.name.toStdString();
}

namespace {

/// A document of two rows that comes back, until a test spoils it.
class ReadBack : public DocumentFixture
{
protected:
    ReadBack()
    {
        MachineInfos[docNo] = {u"XT"_s, u"1"_s, u"2"_s, u"3"_s, {u"0.4"_s}, {u"2.5"_s}, {u"xx"_s}, 0, u"1.0"_s};
        grid.rows = {FakeGrid::emptyRow(), FakeGrid::emptyRow()};
        grid.rows[1][ParameterColumn::Number - 1] = u"79"_s;
    }

    void setCell(int column, const QString &text) { grid.rows[1][column - 1] = text; }
    /// Saves without minding any question, reads, and compares.
    bool comesBack()
    {
        host.answersYes = true;
        if (!save(path(u"there.inv"_s), grid)) {
            return false;
        }
        const MachineInfo info = MachineInfos[docNo];
        const QList<PrRecord> records = PrRecords;
        MachineInfos[docNo] = {};
        const bool isSame = read(path(u"there.inv"_s)) && MachineInfos[docNo] == info
            && PrRecords.first(std::min(records.size(), PrRecords.size())) == records;
        MachineInfos[docNo] = info;
        return isSame;
    }
    /// Expects that a save asks about these, that No leaves all as it was, and that the question was not for nothing.
    void expectQuestion(const QList<ReadBackFinding> &findings)
    {
        const QString file = put("earlier");
        documentOrigin(docNo).file = KnownFile::present(file);
        DocFlags[docNo].changed = true;
        EXPECT_FALSE(save(file, grid));
        EXPECT_EQ(host.findings, findings);
        EXPECT_EQ(host.titles, QStringList{file});
        EXPECT_EQ(host.cells, QList<CellPosition>{findings.first().cell});
        EXPECT_TRUE(host.messages.isEmpty());
        EXPECT_EQ(contentOf(file), "earlier");
        EXPECT_TRUE(DocFlags[docNo].changed);
        EXPECT_FALSE(host.busy);
    }

    FakeGrid grid;
};

struct CellCase
{
    int column;
    QString text;
    ReadBackFault fault;
};

void PrintTo(const CellCase &spoiled, std::ostream *out)
{
    *out << "column " << spoiled.column << ": " << spoiled.text.toStdString();
}

class SpoiledCell : public ReadBack, public testing::WithParamInterface<CellCase>
{
};

TEST_P(SpoiledCell, isAskedAbout)
{
    setCell(GetParam().column, GetParam().text);
    const QString number = grid.rows[1][0];
    expectQuestion({{.fault = GetParam().fault, .cell = {.row = 2, .column = GetParam().column}, .name = number}});
    EXPECT_FALSE(comesBack());
}

using namespace ParameterColumn;
INSTANTIATE_TEST_SUITE_P(Cells, SpoiledCell,
    testing::ValuesIn(std::vector<CellCase>{
        {Name, u"Torque, boost"_s, ReadBackFault::Comma},
        {Unit, u","_s, ReadBackFault::Comma},
        {Number, u"1,2"_s, ReadBackFault::Comma},
        {HelpId, u"a\nb"_s, ReadBackFault::LineEnd},
        {Name, u"a\r\nb"_s, ReadBackFault::LineEnd},
        {Name, u"a\r\n"_s, ReadBackFault::LineEnd},
        {Name, u"\""_s, ReadBackFault::LeadingQuote},
        {Name, u"\"quoted\""_s, ReadBackFault::LeadingQuote},
        {Name, u"\"a,b\""_s, ReadBackFault::LeadingQuote},
        {Name, u"  \"a"_s, ReadBackFault::LeadingQuote},
        {Unit, u" %"_s, ReadBackFault::EdgeSpaces},
        {Unit, u"% "_s, ReadBackFault::EdgeSpaces},
        {Unit, u" "_s, ReadBackFault::EdgeSpaces},
        {Condition, u"OP=a\nb"_s, ReadBackFault::LineEnd},
        {Condition, u"79=1,OP=\"a"_s, ReadBackFault::LeadingQuote},
        {ParameterColumn::SettingRange, u"0-12345678"_s, ReadBackFault::BoundDigits},
    }));

TEST_F(ReadBack, asksAboutABoundThatTheGridWouldTakeForARange)
{
    setCell(ParameterColumn::SettingRange, u"0.00005"_s);
    expectQuestion({{.fault = ReadBackFault::BoundDigits,
        .cell = {.row = 2, .column = ParameterColumn::SettingRange},
        .name = u"79"_s}});
}

TEST_F(ReadBack, asksAboutBytesThatWouldMeanAnotherCharacter)
{
    setAnsiCodePageNumber(932);
    setCell(Name, u"\uF781A"_s); // a lead byte and what would be its second
    expectQuestion({{.fault = ReadBackFault::Character, .cell = {.row = 2, .column = Name}, .name = u"79"_s}});
    EXPECT_FALSE(comesBack());
}

TEST_F(ReadBack, asksAboutEachCellOnceByRowAndColumnAfterTheMachineInformation)
{
    grid.rows[0][Name - 1] = u"a,b,c"_s;
    grid.rows[0][Number - 1] = u"1"_s;
    setCell(Name, u"d,e"_s);
    setCell(Unit, u" x"_s);
    MachineInfos[docNo].Code = u"3 "_s;
    expectQuestion({{.fault = ReadBackFault::EdgeSpaces, .cell = {}, .name = u"Code"_s},
        {.fault = ReadBackFault::Comma, .cell = {.row = 1, .column = Name}, .name = u"1"_s},
        {.fault = ReadBackFault::Comma, .cell = {.row = 2, .column = Name}, .name = u"79"_s},
        {.fault = ReadBackFault::EdgeSpaces, .cell = {.row = 2, .column = Unit}, .name = u"79"_s}});
}

class HarmlessCell : public ReadBack, public testing::WithParamInterface<std::pair<int, QString>>
{
};

TEST_P(HarmlessCell, isSavedWithoutAQuestionAndComesBack)
{
    setCell(GetParam().first, GetParam().second);
    EXPECT_TRUE(save(path(u"saved.inv"_s), grid));
    EXPECT_TRUE(host.findings.isEmpty());
    EXPECT_TRUE(comesBack());
}

INSTANTIATE_TEST_SUITE_P(Cells, HarmlessCell,
    testing::Values(std::pair{int(Name), u"a \"quoted\" word"_s}, std::pair{int(Name), u"\ttab\t"_s},
        std::pair{int(Name), u"[Paramater]"_s}, std::pair{int(Name), u"a\rb\r"_s}, std::pair{int(Name), u"Größe 'x'"_s},
        std::pair{int(Name), u"a;b=c"_s}, std::pair{int(FactorySetting), u"1,5"_s},
        std::pair{int(FactorySetting), u" many "_s},
        std::pair{int(ParameterColumn::SettingRange), u"0-400,9999,0.0001-9999999,1e10"_s},
        std::pair{int(Condition), u" 79 = 1 , MODE/2,x"_s}, std::pair{int(Min2), u"a,b"_s}));

struct MachineCase
{
    const char *name;
    void (*spoil)(MachineInfo &info);
    ReadBackFault fault;
    QString key;
};

void PrintTo(const MachineCase &spoiled, std::ostream *out)
{
    *out << spoiled.name;
}

class SpoiledMachine : public ReadBack, public testing::WithParamInterface<MachineCase>
{
};

TEST_P(SpoiledMachine, isAskedAbout)
{
    GetParam().spoil(MachineInfos[docNo]);
    expectQuestion({{.fault = GetParam().fault, .cell = {}, .name = GetParam().key}});
    EXPECT_FALSE(comesBack());
}

const MachineCase spoiledMachines[] = {
    MachineCase{"noName", [](MachineInfo &info) { info.Name.clear(); }, ReadBackFault::ModelNameMissing, u"Name"_s},
    MachineCase{
        "noCurrent", [](MachineInfo &info) { info.ICapacity.clear(); }, ReadBackFault::CurrentMissing, u"Capacity0"_s},
    MachineCase{"noCapacity", [](MachineInfo &info) { info.ICapacity << u"7"_s; }, ReadBackFault::CapacityMissing,
        u"ICapacity1"_s},
    MachineCase{"emptyOption",
        [](MachineInfo &info) {
            info.Option = {u"A"_s, {}, u"B"_s};
        },
        ReadBackFault::EmptyEntry, u"Option1"_s},
    MachineCase{"emptyCurrent", [](MachineInfo &info) { info.ICapacity[0].clear(); }, ReadBackFault::EmptyEntry,
        u"ICapacity0"_s},
    MachineCase{"lineEnd", [](MachineInfo &info) { info.TypeCode = u"1\n2"_s; }, ReadBackFault::LineEnd, u"TypeCode"_s},
    MachineCase{"long", [](MachineInfo &info) { info.Name = QString(128, u'x'); }, ReadBackFault::TooLong, u"Name"_s},
    MachineCase{
        "quotes", [](MachineInfo &info) { info.VCapacity = u"'2'"_s; }, ReadBackFault::EnclosingQuotes, u"VCapacity"_s},
    MachineCase{"blanks", [](MachineInfo &info) { info.SoftWareVersion = u"1.0\t"_s; }, ReadBackFault::EdgeSpaces,
        u"SoftWareVersion"_s},
    MachineCase{"nul", [](MachineInfo &info) { info.Code = u"3"_s + QChar(u'\0') + u"4"_s; }, ReadBackFault::Character,
        u"Code"_s}};

INSTANTIATE_TEST_SUITE_P(Values, SpoiledMachine, testing::ValuesIn(spoiledMachines),
    [](const auto &test) { return std::string(test.param.name); });

TEST_F(ReadBack, doesNotMindAValueOfTheGreatestLength)
{
    MachineInfos[docNo].Name = QString(127, u'x');
    MachineInfos[docNo].TypeCode.clear();
    MachineInfos[docNo].Option.clear();
    EXPECT_TRUE(save(path(u"saved.inv"_s), grid));
    EXPECT_TRUE(host.findings.isEmpty());
    EXPECT_TRUE(comesBack());
}

TEST_F(ReadBack, writesOnYesWhatItWouldHaveWrittenAnyway)
{
    setCell(Name, u"a,b"_s);
    host.answersYes = true;
    DocFlags[docNo].changed = true;
    EXPECT_TRUE(save(path(u"saved.inv"_s), grid));
    EXPECT_TRUE(contentOf(path(u"saved.inv"_s)).endsWith(",0,0,79,,a,b,,1,-1,-1,0,0,0,0,"));
    EXPECT_FALSE(DocFlags[docNo].changed);
    EXPECT_TRUE(host.cells.isEmpty());
}

/// Documents full of what could go wrong: a question comes exactly where the document does not.
TEST_F(ReadBack, isAskedAboutExactlyWhatDoesNotComeBack)
{
    const int documents = ThisSystem::repetitions(2000);
    int asked = 0;
    for (int seed = 0; seed < documents; ++seed) {
        useCodePage(seed % 2 != 0 ? 932 : 1252);
        RandomDocument random(quint32(seed), false);
        const auto text = [&random] {
            const bool isOdd = random.number(24) == 0;
            return random.textOf(isOdd ? u"ab\"\n\r, 1\uF781\uF7FC@" : u"ab1' \"\u00B1@", 1 + random.number(2));
        };
        for (QStringList &row : grid.rows) {
            row = FakeGrid::emptyRow();
            for (const int column : {Number, Name, Unit, HelpId}) {
                row[column - 1] = u"x"_s + text() + u"y"_s;
                row[column - 1].remove(0, random.number(9) == 0 ? 1 : 0);
                row[column - 1].chop(random.number(9) == 0 ? 1 : 0);
            }
            row[Condition - 1] = u"OP=z"_s + text() + u"z"_s;
        }
        MachineInfo &info = MachineInfos[docNo];
        info.Name = u"X"_s + text() + u"X"_s;
        info.Code = text() + u"X"_s;
        info.Option = {u"A"_s, u"B"_s.first(random.number(9) == 0 ? 0 : 1)};
        host.findings.clear();
        const bool isWhole = comesBack();
        ASSERT_TRUE(host.messages.isEmpty() || !isWhole) << host.messages.first().toStdString();
        host.messages.clear();
        ASSERT_EQ(host.findings.isEmpty(), isWhole) << "seed " << seed << ": " << testing::PrintToString(host.findings);
        asked += host.findings.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(asked, documents / 4);
    EXPECT_LT(asked, documents * 9 / 10);
}

} // namespace
