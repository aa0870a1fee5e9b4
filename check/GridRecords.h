#pragma once

#include "check/Finding.h"
#include "document/PrGrid.h"
#include "document/RowFields.h"

/// Makes the records that a save would write of a grid's rows, one after the other in the same storage. A cell that its
/// field cannot hold, which keeps a save from writing anything, leaves the field empty.
class GridRecords
{
public:
    explicit GridRecords(const PrGrid &grid) : m_grid(grid) { }
    Q_DISABLE_COPY_MOVE(GridRecords)

    /// row: from 1. Valid until the next call.
    const PrRecord &read(int row);
    /// The cells of the row read last that their fields cannot hold.
    const Findings &overflows() const { return m_overflows; }

private:
    const PrGrid &m_grid;
    CollectedRow m_row;
    PrRecord m_record;
    Findings m_overflows;
};
