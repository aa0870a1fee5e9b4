#pragma once

#include "document/PrGrid.h"
#include "runtime/RunTimeError.h"

#include <optional>

/// Rebuilds PrRecords from the grid's rows; record i comes from row i + 1. Overflow when a cell holds a number that its
/// field cannot; PrRecords then keeps what it held. Nothing is returned when all went well.
std::optional<RunTimeError> CollectPrRecords(const PrGrid &grid);
