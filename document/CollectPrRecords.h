#pragma once

#include "document/PrGrid.h"
#include "runtime/Result.h"

/// Rebuilds PrRecords from the grid's rows; record i comes from row i + 1. Overflow when a cell holds a number that its
/// field cannot; the rows from that one on are then not to be used.
Result<> CollectPrRecords(const PrGrid &grid);
