#include "editor/FindingMarks.h"

#include "app/services/FindingTexts.h"
#include "app/services/Messages.h"
#include "check/CheckRules.h"
#include "desktop/InputHold.h"
#include "document/FuncCodeText.h"
#include "editor/OpenDocument.h"
#include "grid/SpreadGrid.h"

#include <QElapsedTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowsOfStep = 128; ///< some milliseconds at most on a slow machine

bool isSame(const CellRow &left, const CellRow &right)
{
    return left.sharesMemoryWith(right);
}

} // namespace

FindingMarks::FindingMarks(SpreadGrid &grid, const OpenDocument &document, QObject *parent)
    : QObject(parent), m_grid(grid), m_document(document), m_cells(grid), m_check(m_cells)
{
    m_slices.setSingleShot(true);
    connect(&m_slices, &QTimer::timeout, this, &FindingMarks::runSlice);
    connect(&grid, &SpreadGrid::contentsChanged, this, &FindingMarks::noteChange);
    connect(&grid, &SpreadGrid::rowCountAboutToChange, this, &FindingMarks::noteChange);
    connect(&document, &OpenDocument::titleChanged, this, &FindingMarks::noteFile);
    connect(&document, &OpenDocument::saved, this, &FindingMarks::noteFile);
    m_check.setMarksChanged([this](int row) {
        if (m_isComplete) {
            m_grid.updateMarks(row + 1);
        }
    });
    grid.setMarks(this);
}

/// What the document's file and folder say is read when there is time for it.
void FindingMarks::noteFile()
{
    m_hasBasis = false;
    noteChange();
    m_grid.viewport()->update();
}

/// A rules file that cannot be read, or is wrong, changes nothing; goTo() tells of it.
void FindingMarks::readBasis()
{
    const Result<CheckRules> read = rulesFor(m_document.path());
    m_rulesFailure = read ? QString() : failureText(read.failure());
    const CheckRules rules = read ? *read : CheckRules();
    m_check.setBasis({functionLabels(m_document.path()), m_document.codePage()},
        [&rules](CheckId id) { return rules.severityOf(id); });
    m_hasBasis = true;
}

bool FindingMarks::isShown(const Finding &finding) const
{
    return m_check.severityOf(finding.id) > Severity::Note;
}

// What the cells are marked with

CellMark FindingMarks::mark(int column, int row)
{
    if (!bringUpToDate() || row > m_check.rowCount()) { // the grid has just got the row
        return CellMark::None;
    }
    const auto severity = m_check.marks(row - 1).at(column);
    return !severity ? CellMark::None : *severity == Severity::Error ? CellMark::Error : CellMark::Warning;
}

QString FindingMarks::text(int column, int row)
{
    const bool isKnown = bringUpToDate() && m_check.isSettled() && row <= m_check.rowCount();
    return isKnown ? linesOf(m_check.findings(row - 1), column).join(u'\n') : QString();
}

QStringList FindingMarks::linesOf(const Findings &findings, int column) const
{
    QStringList lines;
    for (const Finding &finding : findings) {
        if (finding.place.column == column && isShown(finding)) {
            const bool isError = m_check.severityOf(finding.id) == Severity::Error;
            lines << ownText(isError ? OwnText::FindingError : OwnText::FindingWarning,
                {findingText(finding, ownText(OwnText::MachineInformation)), checkInfo(finding.id).name});
        }
    }
    return lines;
}

// Following the grid

void FindingMarks::noteChange()
{
    m_isStale = true;
    m_hasReached = false;
}

/// False until the check knows all rows: what is found in one of them depends on the others.
bool FindingMarks::bringUpToDate()
{
    if (m_isComplete && m_isStale) {
        takeRows(m_grid.textRows().size());
        m_isStale = false;
    }
    if (!m_slices.isActive() && (!m_isComplete || !m_hasBasis || !m_check.isSettled() || m_check.isPending())) {
        m_slices.start(0);
    }
    return m_isComplete;
}

/// Tells the check of the first rows of the grid, that many at most.
void FindingMarks::takeRows(std::size_t count)
{
    const auto rows = m_grid.textRows();
    if (!m_isComplete) {
        m_known.reserve(rows.size());
    }
    tell(rows.first(std::min(count, rows.size())));
    m_check.settleSome(rowsOfStep);
}

/// Tells the check what differs from what it knows. Rows that only moved share their memory with the rows that they
/// were, so that they are at the beginning, or at the end, of what stayed the same.
void FindingMarks::tell(std::span<const CellRow> present)
{
    const auto [known, first] = std::ranges::mismatch(m_known, present, isSame);
    const auto begin = int(first - present.begin());
    auto knownEnd = m_known.end();
    auto presentEnd = present.end();
    while (knownEnd != known && presentEnd != first && isSame(*(knownEnd - 1), *(presentEnd - 1))) {
        --knownEnd;
        --presentEnd;
    }
    const auto removed = knownEnd - known;
    const auto added = presentEnd - first;
    if (removed != added) {
        m_check.replaceRows(begin, int(removed), int(added));
        const auto at = m_known.erase(known, knownEnd);
        m_known.insert(at, first, presentEnd);
        return;
    }
    for (std::ptrdiff_t i = 0; i < added; ++i) {
        if (!isSame(known[i], first[i])) {
            m_check.replaceRows(begin + int(i), 1, 1);
            known[i] = first[i];
        }
    }
}

// Work in slices

void FindingMarks::runSlice()
{
    constexpr qint64 sliceTime = 1'000'000; // nanoseconds: one key's events may have to wait for several slices
    constexpr int afterFile = 50;
    if (InputHold::isHeld()) {
        m_slices.start(afterFile);
        return;
    }
    QElapsedTimer time;
    time.start();
    bool isLeft = true;
    while (isLeft && time.nsecsElapsed() < sliceTime) {
        isLeft = runStep();
    }
    if (isLeft) {
        m_slices.start(0);
    }
}

/// False once nothing is left to do.
bool FindingMarks::runStep()
{
    if (!m_hasBasis) {
        readBasis();
        return true;
    }
    if (!m_isComplete) {
        takeRows(m_known.size() + std::size_t(rowsOfStep));
        m_isComplete = m_known.size() == m_grid.textRows().size();
        if (m_isComplete) {
            m_isStale = false;
            m_grid.viewport()->update();
        }
        return true;
    }
    if (m_isStale) {
        takeRows(m_grid.textRows().size());
        m_isStale = false;
    }
    if (!m_check.isSettled()) {
        if (m_check.settleSome(rowsOfStep)) {
            m_grid.viewport()->update();
        }
        return true;
    }
    return m_check.checkNext(rowsOfStep);
}

void FindingMarks::finish()
{
    while (runStep()) { }
    m_slices.stop();
}

Findings FindingMarks::allFindings()
{
    finish();
    Findings findings;
    for (int row = 0; row < m_check.rowCount(); ++row) {
        findings += m_check.findings(row);
    }
    return findings;
}

// From one to the next

/// The cells to go to, by row and column; row 0 is the machine information.
std::vector<CellPosition> FindingMarks::stops()
{
    std::vector<CellPosition> stops;
    const Findings ofMachine = machineFindings(m_document.machine(), m_grid.rowCount() > 0, m_document.codePage());
    if (std::ranges::any_of(ofMachine, [this](const Finding &finding) { return isShown(finding); })) {
        stops.emplace_back();
    }
    for (int row = 1; row <= m_check.rowCount(); ++row) {
        const RowMarks marks = m_check.marks(row - 1);
        for (int column = 1; !marks.isEmpty() && column <= m_grid.columnCount(); ++column) {
            if (marks.at(column)) {
                stops.push_back({.row = row, .column = column});
            }
        }
    }
    return stops;
}

/// Where the search goes on: from the place that it reached last, which need not be the active cell, unless the user
/// has gone elsewhere since.
CellPosition FindingMarks::position() const
{
    const CellPosition active{.row = m_grid.activeRow(), .column = m_grid.activeColumn()};
    return m_hasReached && active == m_activeThen ? m_reached : active;
}

QString FindingMarks::goTo(int step)
{
    finish();
    const std::vector<CellPosition> all = stops();
    if (all.empty()) {
        return withRulesFailure(ownText(OwnText::NoFinding));
    }
    const auto isBefore = [](const CellPosition &left, const CellPosition &right) {
        return std::pair(left.row, left.column) < std::pair(right.row, right.column);
    };
    const auto [first, after] = std::equal_range(all.begin(), all.end(), position(), isBefore);
    const auto index = step > 0 ? after - all.begin() : first - all.begin() - 1;
    const auto count = std::ssize(all);
    const auto reached = (index + count) % count;
    const CellPosition &stop = all[std::size_t(reached)];
    show(stop);
    return withRulesFailure(
        ownText(OwnText::FindingReached, {QString::number(reached + 1), QString::number(count), textOf(stop)}));
}

QString FindingMarks::withRulesFailure(const QString &said) const
{
    return m_rulesFailure.isEmpty() ? said : u"%1 %2"_s.arg(said, m_rulesFailure);
}

void FindingMarks::show(const CellPosition &stop)
{
    if (stop.row > 0) {
        m_grid.setActiveCell(m_grid.isColumnShown(stop.column) ? stop.column : m_grid.activeColumn(), stop.row);
    }
    m_hasReached = true;
    m_reached = stop;
    m_activeThen = {.row = m_grid.activeRow(), .column = m_grid.activeColumn()};
}

QString FindingMarks::textOf(const CellPosition &stop)
{
    const Findings findings = stop.row > 0
        ? m_check.findings(stop.row - 1)
        : machineFindings(m_document.machine(), m_grid.rowCount() > 0, m_document.codePage());
    const QString text = linesOf(findings, stop.column).join(u' ');
    const bool isHidden = stop.row > 0 && !m_grid.isColumnShown(stop.column);
    return isHidden ? ownText(OwnText::FindingHidden, {columnCaption(stop.column), text}) : text;
}
