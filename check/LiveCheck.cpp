#include "check/LiveCheck.h"

#include "check/MachineCheck.h"
#include "check/NumberKey.h"
#include "check/ReadBackFindings.h"
#include "check/RowSaveCheck.h"
#include "document/FieldText.h"
#include "document/ParameterColumn.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isError(const Finding &finding)
{
    return checkInfo(finding.id).severity == Severity::Error;
}

/// Only conditions on numbers are judged by other rows.
QStringList subjectsOf(const PrRecord &record)
{
    QStringList subjects;
    for (const PrCondition &condition : record.conditions) {
        if (isNumeric(condition.subject)) {
            subjects << numberKey(condition.subject);
        }
    }
    subjects.removeDuplicates();
    return subjects;
}

} // namespace

std::optional<Severity> RowMarks::at(int column) const
{
    const int bit = 1 << column;
    return (errors & bit) != 0  ? std::optional(Severity::Error)
        : (warnings & bit) != 0 ? std::optional(Severity::Warning)
                                : std::nullopt;
}

LiveCheck::LiveCheck(const PrGrid &grid) : m_grid(grid), m_records(grid)
{
    std::ranges::transform(checkInfos(), m_severities.begin(), &CheckInfo::severity);
}

void LiveCheck::setBasis(const ContentBasis &basis, const SeverityOf &severityOf)
{
    std::array<std::optional<Severity>, checkCount> severities;
    std::ranges::transform(
        checkInfos(), severities.begin(), [&severityOf](const CheckInfo &info) { return severityOf(info.id); });
    if (basis == m_basis && severities == m_severities) {
        return;
    }
    m_basis = basis;
    m_severities = severities;
    std::ranges::for_each(m_rows, [this](int handle) { pend(handle); });
}

// Changes of the rows

void LiveCheck::replaceRows(int first, int removed, int added)
{
    const auto at = m_rows.begin() + first;
    std::for_each(at, at + removed, [this](int handle) { drop(handle); });
    const int kept = std::min(removed, added);
    if (removed > kept) {
        m_rows.erase(at + kept, at + removed);
    } else {
        m_rows.insert(at + kept, std::size_t(added - kept), -1);
    }
    for (int row = first; row < first + added; ++row) {
        const int handle = newHandle();
        m_rows[std::size_t(row)] = handle;
        m_positions[std::size_t(handle)] = row;
        m_new.push_back(handle);
    }
    m_isSettled = false;
    if (first + added < rowCount()) {
        m_concerned.push_back(m_rows[std::size_t(first) + std::size_t(added)]); // another row precedes it
    }
    if (removed != added) {
        m_firstMoved = std::min(m_firstMoved, first + added);
    }
}

int LiveCheck::newHandle()
{
    if (m_freeHandles.empty()) {
        m_byHandle.emplace_back();
        m_positions.push_back(-1);
        return int(m_byHandle.size()) - 1;
    }
    const int handle = m_freeHandles.back();
    m_freeHandles.pop_back();
    return handle;
}

void LiveCheck::drop(int handle)
{
    Row &row = m_byHandle[std::size_t(handle)];
    if (row.isEntered) {
        m_groups.leave(handle);
    }
    row = {};
    m_positions[std::size_t(handle)] = -1;
    m_freeHandles.push_back(handle);
}

void LiveCheck::settle()
{
    settleSome(int(m_new.size()));
}

bool LiveCheck::settleSome(int rows)
{
    placeRows();
    for (; rows > 0 && !m_new.empty(); --rows) {
        enter(m_new.back());
        m_concerned.push_back(m_new.back());
        m_new.pop_back();
    }
    m_isSettled = m_new.empty();
    if (m_isSettled) {
        m_groups.settle(m_positions, m_concerned);
        std::ranges::for_each(m_concerned, [this](int handle) { pend(handle); });
        m_concerned = std::vector<int>(); // its memory, too: a large change is rare
        m_new = std::vector<int>();
    }
    return m_isSettled;
}

void LiveCheck::placeRows()
{
    for (int row = m_firstMoved; row < rowCount(); ++row) {
        m_positions[std::size_t(m_rows[std::size_t(row)])] = row;
    }
    m_firstMoved = rowCount();
}

void LiveCheck::enter(int handle)
{
    Row &row = m_byHandle[std::size_t(handle)];
    const int position = m_positions[std::size_t(handle)];
    if (position < 0 || row.isEntered) {
        return; // a later change has dropped it again, or given its handle to another row
    }
    const PrRecord &record = m_records.read(position + 1);
    const bool hasHelp = !record.helpId.isEmpty() && record.helpId != "0"_L1;
    m_groups.enter(handle,
        {.numberKey = numberKey(record.number),
            .helpId = hasHelp ? record.helpId : QString(),
            .subjects = subjectsOf(record),
            .said = qHashMulti(0, m_grid.cellText(ParameterColumn::SettingRange, position + 1), record.name)});
    row.isEntered = true;
}

void LiveCheck::pend(int handle)
{
    if (handle >= 0 && m_positions[std::size_t(handle)] >= 0 && !m_byHandle[std::size_t(handle)].isPending) {
        m_byHandle[std::size_t(handle)].isPending = true;
        m_pending.push_back(handle);
    }
}

// Looking at rows

bool LiveCheck::checkNext(int rows)
{
    while (!m_pending.empty() && rows > 0) {
        const int handle = m_pending.back();
        m_pending.pop_back();
        if (m_byHandle[std::size_t(handle)].isPending) {
            check(handle);
            --rows;
        }
    }
    if (m_pending.empty()) {
        m_pending = std::vector<int>();
    }
    return !m_pending.empty();
}

void LiveCheck::check(int handle)
{
    const int row = m_positions[std::size_t(handle)];
    RowMarks marks;
    for (const Finding &finding : findings(row)) {
        const auto bit = quint16(1U << unsigned(finding.place.column));
        const auto severity = severityOf(finding.id);
        marks.errors |= severity == Severity::Error ? bit : quint16(0);
        marks.warnings |= severity == Severity::Warning ? bit : quint16(0);
    }
    ++m_checkedRows;
    Row &looked = m_byHandle[std::size_t(handle)];
    looked.isPending = false;
    if (looked.marks != marks) {
        looked.marks = marks;
        if (m_marksChanged) {
            m_marksChanged(row);
        }
    }
}

RowMarks LiveCheck::marks(int row)
{
    const int handle = m_rows[std::size_t(row)];
    if (m_isSettled && m_byHandle[std::size_t(handle)].isPending) {
        check(handle);
    }
    return m_byHandle[std::size_t(handle)].marks;
}

/// Whether an open and another save would change the row is asked only of what a save writes.
Findings LiveCheck::findings(int row)
{
    const AnsiCodePage &page = AnsiCodePage::page(m_basis.codePage);
    const PrRecord &record = m_records.read(row + 1);
    Findings findings = m_records.overflows();
    findings += checkRowReadBack(record, row + 1, page);
    const bool isWritten = std::ranges::none_of(findings, isError);
    findings += checkContent(record, row, *this, m_basis);
    if (isWritten) {
        findings += checkRowSavedAgain(record, row + 1, page, findings);
    }
    std::ranges::stable_sort(findings, {}, [](const Finding &finding) { return finding.place.column; });
    return findings;
}

// The other rows

int LiveCheck::rowOf(const QString &number) const
{
    const int handle = m_groups.firstOfNumber(numberKey(number));
    return handle < 0 ? -1 : m_positions[std::size_t(handle)];
}

int LiveCheck::rowOfHelp(const QString &helpId) const
{
    const int handle = m_groups.firstOfHelp(helpId);
    return handle < 0 ? -1 : m_positions[std::size_t(handle)];
}

QString LiveCheck::number(int row) const
{
    return m_grid.cellText(ParameterColumn::Number, row + 1).toString();
}

QString LiveCheck::name(int row) const
{
    return m_grid.cellText(ParameterColumn::Name, row + 1).toString();
}

QList<SettingInterval> LiveCheck::intervals(int row) const
{
    const auto ranges = rangesFromText(m_grid.cellText(ParameterColumn::SettingRange, row + 1));
    return ranges ? settingIntervals(*ranges) : QList<SettingInterval>();
}

Findings machineFindings(const MachineInfo &machine, bool hasRows, int codePage)
{
    return checkMachineReadBack(machine, hasRows, AnsiCodePage::page(codePage)) + checkMachine(machine);
}
