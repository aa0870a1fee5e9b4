#pragma once

#include "grid/SpreadView.h"

/// Turns the view's redrawing off for as long as this object lives.
class RedrawOff
{
public:
    explicit RedrawOff(SpreadView &grid) : m_grid(grid) { m_grid.setRedraw(false); }
    ~RedrawOff() { m_grid.setRedraw(true); }
    Q_DISABLE_COPY_MOVE(RedrawOff)

private:
    SpreadView &m_grid;
};
