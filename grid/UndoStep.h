#pragma once

#include "grid/SpreadHistory.h"

/// What is changed in a spread grid as long as this object lives is one step of its history.
class UndoStep
{
public:
    explicit UndoStep(SpreadHistory &history) : m_history(history) { m_history.beginStep(); }
    ~UndoStep() { m_history.endStep(); }
    Q_DISABLE_COPY_MOVE(UndoStep)

private:
    SpreadHistory &m_history;
};
