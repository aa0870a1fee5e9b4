#pragma once

#include "grid/SpreadHistory.h"

/// Makes all changes of a spread grid, as long as this object lives, one step of its history.
class UndoStep
{
public:
    explicit UndoStep(SpreadHistory &history) : m_history(history) { m_history.beginStep(); }
    ~UndoStep() { m_history.endStep(); }
    Q_DISABLE_COPY_MOVE(UndoStep)

private:
    SpreadHistory &m_history;
};
