#pragma once

#include "document/PrGrid.h"
#include "runtime/RunTimeError.h"

#include <optional>

/// Rebuilds PrRecords from the grid's rows; record i comes from row i + 1. Overflow when a cell holds a number that its
/// field cannot; the rows from that one on are then not to be used. Nothing is returned when all went well.
std::optional<RunTimeError> CollectPrRecords(const PrGrid &grid);
