#pragma once

#include "document/PrGrid.h"
#include "grid/SpreadGrid.h"

/// A spread grid's cells for the collector.
class ParameterCells : public PrGrid
{
public:
    explicit ParameterCells(const SpreadGrid &grid) : m_grid(grid) { }

    int rowCount() const override { return m_grid.rowCount(); }
    QStringView cellText(int column, int row) const override { return m_grid.cellText(column, row); }

private:
    const SpreadGrid &m_grid;
};
