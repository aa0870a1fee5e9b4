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

/// What the user did to a spread grid, step by step, and the way back and forth again. A step holds all changes of
/// texts, colours and row count between beginStep() and endStep(). The program's own changes outside a step (a file
/// that is shown, say) cannot be taken back, and nothing from before them can be.
///
/// The steps take a limited number of bytes; the oldest go first, but the last step always stays.
class SpreadHistory final : public QObject
{
    Q_OBJECT

public:
    SpreadHistory(SpreadView &view, SpreadModel &model, SpreadSelection &selection);

    /// Steps are kept from now on. A grid that never starts keeps none.
    void start();
    /// The most bytes that steps may take; 64 MiB unless set.
    void setMostBytes(qsizetype bytes);
    qsizetype size() const { return m_size; } ///< in bytes

    /// Calls nest: the outermost pair makes the step. Without any difference in the end there is no step.
    void beginStep();
    void endStep();
    /// To be called within a step: undo and redo select what the user had selected, not what was changed.
    void keepSelection() { m_open.keepsSelection = true; }
    void noteTexts(const TextChange &change); ///< after the change
    void noteColours(const GridBlock &block); ///< before the change

    /// Takes the last step back, and selects what was changed. False when there is no step.
    bool undo();
    /// Makes the step again that was taken back last. False when there is none.
    bool redo();

    /// The texts as they are now are those of the file.
    void setClean() { m_clean = m_done; }
    /// No way leads back to the texts of the file.
    void forgetClean() { m_clean.reset(); }
    bool isClean() const { return m_clean == m_done; }

signals:
    /// Comes before the first change.
    void stepBegins();

private:
    struct Step
    {
        GridStep changes;
        GridBlock selectedBefore; ///< what is selected when the step was taken back
        GridBlock selectedAfter; ///< what is selected when it was made again
        bool keepsSelection = false;
        qsizetype size = 0;
    };

    void noteRowCount(int newCount);
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
    size_t m_done = 0; ///< the steps from there on were taken back
    std::optional<size_t> m_clean; ///< m_done when the texts were those of the file
    qsizetype m_size = 0;
    qsizetype m_mostBytes = qsizetype(64) << 20;
    Step m_open;
    int m_depth = 0;
    bool m_started = false;
    bool m_restoring = false;
};
