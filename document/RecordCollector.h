#pragma once

#include "document/PrGrid.h"
#include "document/TextPool.h"
#include "runtime/Result.h"

struct PrRecord;

/// Turns a grid's rows into records. A record's texts and lists that already are what the row says stay as they are:
/// after an open and after a save that is nearly all of them.
class RecordCollector
{
public:
    explicit RecordCollector(const PrGrid &grid) : m_grid(grid) { }

    /// Makes record what the row (from 1) says. Overflow when a cell holds a number that its field cannot; the record
    /// is then not to be used.
    Result<> collect(int row, PrRecord &record);

private:
    const PrGrid &m_grid;
    TextPool m_pool;
};
