#pragma once

#include "document/PrGrid.h"
#include "grid/SpreadGrid.h"
#include "runtime/CellRow.h"

/// A spread grid's cells for the collector.
class ParameterCells : public PrGrid
{
public:
    explicit ParameterCells(const SpreadGrid &grid) : m_grid(grid) { }

    int rowCount() const override { return m_grid.rowCount(); }
    QStringView cellText(int column, int row) const override { return m_grid.cellText(column, row); }
    CellTexts rowTexts(int row) const override
    {
        CellTexts texts;
        m_grid.textRows()[std::size_t(row - 1)].copyTexts(texts);
        return texts;
    }

private:
    const SpreadGrid &m_grid;
};
