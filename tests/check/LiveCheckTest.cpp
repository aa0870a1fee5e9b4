// What is found while a document is edited is what a check of its saved file finds.

#include "check/LiveCheck.h"

#include "check/FileCheck.h"
#include "check/ReadBackFindings.h"
#include "document/PrFileCodec.h"
#include "runtime/AnsiText.h"
#include "tests/check/CheckedFiles.h"
#include "tests/check/LiveRows.h"
#include "tests/support/GrowthOfWork.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

std::optional<Severity> ownSeverity(CheckId id)
{
    return checkInfo(id).severity;
}

/// Notes as well, so that every finding makes a mark
std::optional<Severity> markedSeverity(CheckId id)
{
    return std::max(checkInfo(id).severity, Severity::Warning);
}

Findings allFindings(LiveCheck &check)
{
    Findings findings;
    for (int row = 0; row < check.rowCount(); ++row) {
        findings += check.findings(row);
    }
    return findings;
}

/// The marks that the findings make.
std::vector<RowMarks> marksOf(const Findings &findings, int rows)
{
    std::vector<RowMarks> marks(std::size_t(rows), RowMarks{});
    for (const Finding &finding : findings) {
        RowMarks &own = marks.at(std::size_t(finding.place.row - 1));
        (markedSeverity(finding.id) == Severity::Error ? own.errors : own.warnings) |=
            quint16(1 << finding.place.column);
    }
    return marks;
}

std::vector<RowMarks> allMarks(LiveCheck &check)
{
    std::vector<RowMarks> marks;
    for (int row = 0; row < check.rowCount(); ++row) {
        marks.push_back(check.marks(row));
    }
    return marks;
}

bool isOfSave(const Finding &finding)
{
    return finding.id == CheckId::ValueChanged || finding.id == CheckId::RangeChanged
        || finding.id == CheckId::ConditionsChanged || finding.id == CheckId::SpelledOtherwise;
}

Findings sorted(Findings findings)
{
    std::ranges::stable_sort(
        findings, {}, [](const Finding &finding) { return std::pair(finding.place.row, finding.place.column); });
    return findings;
}

/// What there is to be found where the document cannot be saved as it is: a whole document is looked at, not the rows
/// that an edit concerned.
Findings findingsOf(const LiveRows &rows, const Document &document, const ContentBasis &basis)
{
    Findings findings;
    GridRecords records(rows);
    for (int row = 1; row <= rows.rowCount(); ++row) {
        records.read(row);
        findings += records.overflows();
    }
    findings += checkReadBack(document);
    findings.removeIf([](const Finding &finding) { return finding.place.row == 0; });
    return sorted(findings + checkContent(document.rows, basis));
}

class LiveLaw : public testing::TestWithParam<int>
{
protected:
    /// Compares after an edit. True if the saved file was what it was compared with.
    bool compare(LiveRows &rows, LiveCheck &check);

    MachineInfo m_machine;
    ContentBasis m_basis{FunctionLabels::Normal, 0};
};

bool LiveLaw::compare(LiveRows &rows, LiveCheck &check)
{
    Findings live = allFindings(check);
    EXPECT_EQ(allMarks(check), marksOf(live, rows.rowCount()));
    const Document document = rows.document(m_machine);
    const EncodedGrid saved = encodePrFile(GridDocument{document.machine, rows, m_basis.codePage});
    if (saved.outcome && saved.findings.isEmpty()) {
        const AnsiCodePage &page = AnsiCodePage::page(m_basis.codePage);
        const Findings expected = checkFile(saved.bytes, page, u"a.inv"_s);
        live = machineFindings(document.machine, rows.rowCount() > 0, m_basis.codePage) + live;
        EXPECT_EQ(namesOf(live), namesOf(expected)) << saved.bytes.constData();
        EXPECT_EQ(live, expected);
        return true;
    }
    live.removeIf(isOfSave);
    EXPECT_EQ(namesOf(live), namesOf(findingsOf(rows, document, m_basis)));
    return false;
}

TEST_P(LiveLaw, findsAfterEveryEditWhatACheckOfTheSavedFileFinds)
{
    int saved = 0;
    for (quint32 seed = 0; seed < 30; ++seed) {
        m_basis.codePage = seed % 2 == 0 ? 932 : 1252;
        LiveRows rows(seed * 2 + quint32(GetParam()), m_basis.codePage, GetParam() == 0);
        m_machine = rows.random.machineInfo();
        LiveCheck check(rows);
        check.setBasis(m_basis, markedSeverity);
        check.replaceRows(0, 0, rows.rowCount());
        check.settle();
        for (int edit = 1; edit <= 60; ++edit) {
            if (rows.random.number(1) == 0) { // the others are looked at where they are asked for
                while (check.checkNext(7)) { }
            }
            saved += compare(rows, check) ? 1 : 0;
            ASSERT_FALSE(HasFailure()) << "seed " << seed << ", edit " << edit;
            rows.edit(check);
        }
    }
    EXPECT_GT(saved, GetParam() == 0 ? 1500 : 100);
}

INSTANTIATE_TEST_SUITE_P(Documents, LiveLaw, testing::Values(0, 1));

/// A table of parameters 1 to n in which each fifth is read under a condition on parameter 1.
class LargeTable
{
public:
    explicit LargeTable(int count) : rows(0, 1252, true), check(rows)
    {
        std::vector<LiveRows::Row> added;
        for (int number = 1; number <= count; ++number) {
            const QString text = QString::number(number);
            added.push_back({text, u"Parameter "_s + text, u"0-7"_s, u"0"_s, u"1"_s, u"No"_s, u"No"_s, u"%"_s, u"5"_s,
                text, u"0001"_s, u"0"_s, number % 5 == 0 ? u"1=3"_s : QString()});
        }
        check.setBasis({FunctionLabels::Normal, 1252}, ownSeverity);
        const int former = rows.rowCount();
        check.replaceRows(0, 0, former);
        rows.replaceRows(check, 0, former, added);
        check.settle();
        while (check.checkNext(1000)) { }
    }

    /// How many rows the edit made the check look at.
    qint64 lookedAt(int column, int row, const QString &text)
    {
        const qint64 before = check.checkedRows();
        rows.setText(check, column, row, text);
        while (check.checkNext(1000)) { }
        return check.checkedRows() - before;
    }

    LiveRows rows;
    LiveCheck check;
};

TEST(LiveCheckTest, looksOnlyAtRowsThatAnEditConcerns)
{
    LargeTable table(1000);
    EXPECT_EQ(table.lookedAt(ParameterColumn::Name, 500, u"Other"_s), 2); // the order of the next row, too
    EXPECT_EQ(table.lookedAt(ParameterColumn::FactorySetting, 1, u"9"_s), 2);
    EXPECT_EQ(table.check.marks(0).at(ParameterColumn::FactorySetting), Severity::Warning);
    EXPECT_EQ(table.lookedAt(ParameterColumn::SettingRange, 1, u"0-2"_s), 2 + 200);
    EXPECT_EQ(table.check.marks(4).at(ParameterColumn::Condition), Severity::Warning);
    EXPECT_EQ(table.lookedAt(ParameterColumn::Number, 500, u"7"_s), 2);
    EXPECT_EQ(table.check.marks(499).at(ParameterColumn::Number), Severity::Warning);
    EXPECT_EQ(table.lookedAt(ParameterColumn::Number, 7, u"8000"_s), 3); // and the one that repeats it no more
    EXPECT_EQ(table.check.marks(499).at(ParameterColumn::Number), std::nullopt);
}

TEST(LiveCheckTest, looksAtNoRowThatOnlyMoves)
{
    LargeTable table(1000);
    const qint64 before = table.check.checkedRows();
    table.rows.replaceRows(table.check, 3, 2, {});
    table.check.settle();
    while (table.check.checkNext(1000)) { }
    EXPECT_EQ(table.check.checkedRows() - before, 1);
    EXPECT_EQ(table.check.findings(4 - 1).size(), 0);
}

TEST(LiveCheckTest, isNoSlowerInALargerTable)
{
    std::map<int, std::unique_ptr<LargeTable>> tables;
    for (const int size : {500, 8000}) {
        tables[size] = std::make_unique<LargeTable>(size);
    }
    const auto edits = [&tables](int size) {
        for (int i = 0; i < 200; ++i) {
            tables[size]->lookedAt(ParameterColumn::Name, 100 + i % 300, QString::number(i));
        }
    };
    EXPECT_LT(growthOfWork(edits, 500, 16), 4); // memory that is farther away takes its time, too
}

TEST(LiveCheckTest, countsManyRowsOfOneNumberInProportion)
{
    const auto fill = [](int size) {
        LargeTable table(size);
        std::vector<LiveRows::Row> same(std::size_t(size), LiveRows::Row{u"7"_s, u"Name"_s});
        table.rows.replaceRows(table.check, 0, size, same);
        table.check.settle();
        while (table.check.checkNext(1000)) { }
        EXPECT_EQ(table.check.marks(size - 1).at(ParameterColumn::Number), Severity::Warning);
    };
    EXPECT_LT(growthOfWork(fill, 200, 8), 24); // by the square it would be 64
}

TEST(LiveCheckTest, takesALargeChangeUpInParts)
{
    LargeTable table(100);
    table.lookedAt(ParameterColumn::FactorySetting, 1, u"9"_s);
    const qint64 before = table.check.checkedRows();
    const std::vector<LiveRows::Row> same(50, LiveRows::Row{u"1"_s, u"Name"_s});
    table.rows.replaceRows(table.check, 1, 0, same);
    for (int part = 0; part < 4; ++part) {
        EXPECT_FALSE(table.check.settleSome(10));
        EXPECT_EQ(table.check.marks(0).at(ParameterColumn::FactorySetting), Severity::Warning); // as before
        EXPECT_TRUE(table.check.marks(1).isEmpty());
    }
    EXPECT_EQ(table.check.checkedRows(), before);
    EXPECT_TRUE(table.check.settleSome(10));
    EXPECT_TRUE(table.check.isSettled());
    EXPECT_EQ(table.check.marks(1).at(ParameterColumn::Number), Severity::Warning);
}

TEST(LiveCheckTest, followsTheSeveritiesThatItIsGiven)
{
    LargeTable table(10);
    table.lookedAt(ParameterColumn::Number, 5, u"4"_s);
    EXPECT_EQ(table.check.marks(4).at(ParameterColumn::Number), Severity::Warning);
    const auto give = [&table](std::optional<Severity> severity) {
        table.check.setBasis({FunctionLabels::Normal, 1252}, [severity](CheckId id) {
            return id == CheckId::NumberTwice ? severity : std::optional(checkInfo(id).severity);
        });
        return table.check.marks(4).at(ParameterColumn::Number);
    };
    EXPECT_EQ(give(Severity::Error), Severity::Error);
    EXPECT_EQ(give(Severity::Note), std::nullopt);
    EXPECT_EQ(give(std::nullopt), std::nullopt);
    const qint64 before = table.check.checkedRows();
    EXPECT_EQ(give(std::nullopt), std::nullopt);
    EXPECT_EQ(table.check.checkedRows(), before); // nothing was different
}

TEST(LiveCheckTest, tellsOfRowsWhoseMarksChange)
{
    LargeTable table(100);
    std::vector<int> told;
    table.check.setMarksChanged([&told](int row) { told.push_back(row); });
    table.lookedAt(ParameterColumn::Number, 50, u"7"_s);
    EXPECT_EQ(told, std::vector{49});
    told.clear();
    table.lookedAt(ParameterColumn::Number, 7, u"1000"_s);
    EXPECT_EQ(told, std::vector{49});
}

} // namespace
