#pragma once

#include "document/PrGrid.h"
#include "document/RowFields.h"
#include "runtime/Result.h"

#include <QtGlobal>

/// The fields of a record, which must outlive them.
RowFields fieldsOf(const PrRecord &record);

/// Makes the fields of a grid's rows, one row after the other in the same storage. A cell that goes into the file as it
/// is is not copied.
class RowCollector
{
public:
    explicit RowCollector(const PrGrid &grid) : m_grid(grid) { }
    Q_DISABLE_COPY_MOVE(RowCollector)

    /// Collects a row (from 1). Overflow if a cell holds a number that its field cannot; the fields are not to be used
    /// then.
    Result<> collect(int row);
    /// The row collected last. Valid until the next one, and until the grid's next change or event pass.
    const RowFields &fields() const { return m_row.fields; }

private:
    const PrGrid &m_grid;
    CollectedRow m_row;
};
