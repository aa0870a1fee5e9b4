#pragma once

#include "document/PrGrid.h"
#include "runtime/CellRow.h"

#include <utility>
#include <vector>

/// A parameter grid that holds rows as the editor's does.
class RecordGrid : public PrGrid
{
public:
    explicit RecordGrid(std::vector<CellRow> rows) : m_rows(std::move(rows)) { }

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    QStringView cellText(int column, int row) const override { return m_rows[size_t(row - 1)].text(column - 1); }
    CellTexts rowTexts(int row) const override;

private:
    std::vector<CellRow> m_rows;
};
