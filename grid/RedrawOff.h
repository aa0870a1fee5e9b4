#pragma once

#include "grid/SpreadGrid.h"

/// The grid's redrawing is off for as long as this object lives.
class RedrawOff
{
public:
    explicit RedrawOff(SpreadGrid &grid) : m_grid(grid) { m_grid.setRedraw(false); }
    ~RedrawOff() { m_grid.setRedraw(true); }
    Q_DISABLE_COPY_MOVE(RedrawOff)

private:
    SpreadGrid &m_grid;
};
