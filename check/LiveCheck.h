#pragma once

#include "check/ContentCheck.h"
#include "check/GridRecords.h"
#include "check/OtherRows.h"
#include "check/RowGroups.h"
#include "document/MachineInfo.h"

#include <QString>

#include <array>
#include <functional>
#include <optional>
#include <vector>

/// In which columns of a row something was found: column n is bit n.
struct RowMarks
{
    quint16 errors = 0;
    quint16 warnings = 0;

    bool isEmpty() const { return errors == 0 && warnings == 0; }
    /// The most severe of what is found in that column; std::nullopt without an error or warning.
    std::optional<Severity> at(int column) const;
    bool operator==(const RowMarks &) const = default;
};

/// What checkFile() would find in the rows of a file if a grid were saved now, kept up to date while the grid is
/// edited: only those rows are looked at again whose findings a change can concern. Cells that a save would ask about,
/// because they would not be read back, or fail at, are found as well.
///
///     LiveCheck check(cells);
///     check.setBasis(basis, severityOf);
///     check.replaceRows(0, 0, cells.rowCount()); // all rows are new
///     check.settle();
///     while (check.checkNext(100)) { }           // as much of it as there is time for
///     check.marks(4);                            // the columns of the fifth row
///     check.findings(4);                         // what there is to say about them
///
/// Rows count from 0 here; findings count them from 1.
class LiveCheck : private OtherRows
{
public:
    /// What a finding counts as; std::nullopt if its check is off.
    using SeverityOf = std::function<std::optional<Severity>(CheckId)>;

    /// grid must outlive the check.
    explicit LiveCheck(const PrGrid &grid);
    Q_DISABLE_COPY_MOVE(LiveCheck)

    /// If something differs from before, all rows are to be looked at again.
    void setBasis(const ContentBasis &basis, const SeverityOf &severityOf);
    std::optional<Severity> severityOf(CheckId id) const { return m_severities.at(std::size_t(id)); }

    /// From row first on, the grid has `added` other rows where `removed` ones were. One such change follows another in
    /// the row numbers that the former ones left; settle() ends them.
    void replaceRows(int first, int removed, int added);
    /// Reads the new rows, and finds out which of the others they concern.
    void settle();
    /// Reads that many of the new rows, so that a large change can be taken up in parts. True once it is settled.
    bool settleSome(int rows);
    bool isSettled() const { return m_isSettled; }

    int rowCount() const { return int(m_rows.size()); }
    /// Looks at up to that many of the rows that are to be looked at. False once none is left. Only once all is
    /// settled.
    bool checkNext(int rows);
    /// Whether rows are to be looked at.
    bool isPending() const { return !m_pending.empty(); }
    /// How many rows have been looked at so far.
    qint64 checkedRows() const { return m_checkedRows; }
    /// Called with each row whose marks change. It must leave the check alone.
    void setMarksChanged(std::function<void(int row)> call) { m_marksChanged = std::move(call); }

    /// Up to date, also while other rows are still to be looked at. Until a change is settled, those from before it.
    RowMarks marks(int row);
    /// All that is found in the row, by column, whatever it counts as. Only once all is settled.
    Findings findings(int row);

private:
    /// A row keeps its handle wherever it moves.
    struct Row
    {
        RowMarks marks;
        bool isEntered = false;
        bool isPending = false;
    };

    int rowOf(const QString &number) const override;
    int rowOfHelp(const QString &helpId) const override;
    QString number(int row) const override;
    QString name(int row) const override;
    QList<SettingInterval> intervals(int row) const override;

    void placeRows();
    int newHandle();
    void drop(int handle);
    void enter(int handle);
    void pend(int handle);
    void check(int handle);

    const PrGrid &m_grid;
    GridRecords m_records;
    ContentBasis m_basis{};
    std::array<std::optional<Severity>, checkCount> m_severities;
    std::function<void(int)> m_marksChanged;
    RowGroups m_groups;
    std::vector<Row> m_byHandle;
    std::vector<int> m_positions; ///< by handle, from 0; -1: the row is gone
    std::vector<int> m_freeHandles;
    std::vector<int> m_rows; ///< handles, by row
    std::vector<int> m_new; ///< rows that settle() reads
    std::vector<int> m_concerned; ///< rows that it finds to be looked at
    std::vector<int> m_pending; ///< rows, of which some may have been looked at already
    int m_firstMoved = 0;
    bool m_isSettled = true;
    qint64 m_checkedRows = 0;
};

/// What checkFile() would find in the machine information of such a file, whatever it counts as. codePage: of the
/// document.
Findings machineFindings(const MachineInfo &machine, bool hasRows, int codePage);
