#pragma once

#include "check/LiveCheck.h"
#include "editor/ParameterCells.h"
#include "grid/cells/CellMarks.h"
#include "runtime/CellRow.h"

#include <QObject>
#include <QTimer>

#include <span>
#include <vector>

class OpenDocument;
class SpreadGrid;

/// Marks the cells of a parameter grid in which a check of the saved file would find an error or a warning, and leads
/// from one to the next.
///
/// The first painting of the grid starts the work, which is done in slices between events and not while a file is read
/// or written. What is in view is up to date whenever it is painted, once all rows are known and unless very many have
/// changed at once. Nothing of the document is touched.
///
/// The marks are about the document as it is in the window: what opening its file has lost already, and how its bytes
/// are spelled, is not in the grid. What each finding counts as is said by the rules for the document's folder, read
/// when it is opened and saved.
class FindingMarks final : public QObject, private CellMarks
{
    Q_OBJECT

public:
    FindingMarks(SpreadGrid &grid, const OpenDocument &document, QObject *parent);

    /// To the next cell with an error or warning (step 1) or the one before (-1), around the ends. What is found in the
    /// machine information comes before the first row and moves nothing; for a cell in a hidden column the row becomes
    /// the active one. Returns what is to be told of it.
    QString goTo(int step);

    /// The findings of all rows, whatever they count as.
    Findings allFindings();
    /// Whether all rows have been looked at.
    bool isUpToDate() const
    {
        return m_hasBasis && m_isComplete && !m_isStale && m_check.isSettled() && !m_slices.isActive();
    }
    qint64 checkedRows() const { return m_check.checkedRows(); }

private:
    CellMark mark(int column, int row) override;
    QString text(int column, int row) override;

    bool isShown(const Finding &finding) const;
    void noteFile();
    void readBasis();
    void noteChange();
    bool bringUpToDate();
    void takeRows(std::size_t count);
    void tell(std::span<const CellRow> present);
    void runSlice();
    bool runStep();
    void finish();
    std::vector<CellPosition> stops();
    CellPosition position() const;
    void show(const CellPosition &stop);
    QString textOf(const CellPosition &stop);
    QString withRulesFailure(const QString &said) const;
    QStringList linesOf(const Findings &findings, int column) const;

    SpreadGrid &m_grid;
    const OpenDocument &m_document;
    ParameterCells m_cells;
    LiveCheck m_check;
    std::vector<CellRow> m_known; ///< the grid's rows as the check knows them
    QString m_rulesFailure; ///< why the rules for the document's folder do not count
    bool m_hasBasis = false; ///< the check goes by the document's file and its rules
    bool m_isStale = true; ///< the grid has changed since then
    bool m_isComplete = false; ///< the check knows all rows
    QTimer m_slices;
    bool m_hasReached = false; ///< goTo() has been somewhere since the last change
    CellPosition m_reached = {};
    CellPosition m_activeThen = {};
};
