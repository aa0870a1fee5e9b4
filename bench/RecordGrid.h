#pragma once

#include "document/PrGrid.h"
#include "document/PrRecord.h"
#include "runtime/CellRow.h"

#include <QList>

#include <vector>

/// A parameter grid that holds records as the editor's does: one buffer with all texts for a row.
class RecordGrid : public PrGrid
{
public:
    /// The first count records.
    RecordGrid(const QList<PrRecord> &records, int count);

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    QStringView cellText(int column, int row) const override { return m_rows[size_t(row - 1)].text(column - 1); }
    CellTexts rowTexts(int row) const override;

private:
    std::vector<CellRow> m_rows;
};
