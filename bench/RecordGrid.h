#pragma once

#include "document/PrGrid.h"
#include "document/PrRecord.h"

#include <QList>
#include <QStringList>

/// A parameter grid that holds records as the editor shows them, one text per cell.
class RecordGrid : public PrGrid
{
public:
    /// The first count records.
    RecordGrid(const QList<PrRecord> &records, int count);

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    QStringView cellText(int column, int row) const override { return m_rows[row - 1][column - 1]; }

private:
    QList<QStringList> m_rows;
};
