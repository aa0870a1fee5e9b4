#pragma once

#include "grid/GridStep.h"
#include "grid/cells/GridBlock.h"

#include <QObject>

#include <deque>
#include <optional>

class SpreadModel;
class SpreadSelection;
class SpreadView;
struct TextChange;

/// Undo and redo of what the user did to a spread grid. A step holds all changes of texts, colours and row count
/// between beginStep() and endStep(); an UndoStep calls both:
///
///     {
///         const UndoStep step(grid.history());
///         grid.setText(3, 1, u"50.0"_s);
///         grid.setTextColour({3, 1, 3, 1}, Qt::red);
///     }
///     grid.history().undo(); // the former text, in its former colour
///     grid.history().redo(); // "50.0" in red
///
/// What the user types is a step by itself. A change that the program makes outside a step (showing a file, for
/// instance) cannot be undone, and nothing from before it can.
///
/// The steps take a limited number of bytes; the oldest are dropped first, but the last one is always kept.
class SpreadHistory final : public QObject
{
    Q_OBJECT

public:
    SpreadHistory(SpreadView &view, SpreadModel &model, SpreadSelection &selection);

    /// Keeps steps from now on. A history that is never started keeps none.
    void start();
    /// How many bytes the steps may take; 64 MiB unless set.
    void setMaxBytes(qsizetype bytes);
    qsizetype size() const { return m_size; } ///< in bytes

    /// Calls nest: the outermost pair makes the step. If nothing has changed in the end there is no step.
    void beginStep();
    void endStep();
    /// Call it within a step: undo and redo will then select what the user had selected, not what was changed.
    void keepSelection() { m_open.keepsSelection = true; }
    void recordTexts(const TextChange &change); ///< after the change
    void recordColours(const GridBlock &block); ///< before the change

    /// Undoes the last step and selects what was changed. False if there is no step.
    bool undo();
    /// Redoes the step that was undone last. False if there is none.
    bool redo();

    /// The grid's texts are now those of the file.
    void setClean() { m_clean = m_done; }
    /// No undo or redo leads to the texts of the file any more.
    void forgetClean() { m_clean.reset(); }
    bool isClean() const { return m_clean == m_done; }

private:
    struct Step
    {
        GridStep changes;
        GridBlock selectedBefore; ///< by undo()
        GridBlock selectedAfter; ///< by redo()
        bool keepsSelection = false;
        qsizetype size = 0;
    };

    void recordRowCount(int newCount);
    bool isInStep() const;
    void forgetOutsideSteps();
    void forgetAll();
    void finish(Step &step) const;
    void push(Step &&step);
    void dropUndone();
    void dropOldest();
    void restore(void (GridStep::*way)(SpreadModel &, SpreadView &), Step &step, GridBlock selected);
    GridBlock shownPart(GridBlock block) const;

    SpreadView &m_view;
    SpreadModel &m_model;
    SpreadSelection &m_selection;
    std::deque<Step> m_steps;
    size_t m_done = 0; ///< the steps from there on were undone
    std::optional<size_t> m_clean; ///< m_done with the texts of the file
    qsizetype m_size = 0;
    qsizetype m_maxBytes = qsizetype(64) << 20;
    Step m_open;
    int m_depth = 0;
    bool m_started = false;
    bool m_restoring = false;
};
