#pragma once

#include "check/Finding.h"
#include "document/PrRecord.h"

class OtherRows;

/// The operation modes are 0 to this one.
inline constexpr double lastOperationMode = 7;

/// What is wrong in the read conditions of a record: those on parameters that are not there or on itself, on values
/// that cannot be, and those that always or never hold. row: from 1.
void checkConditions(const PrRecord &record, int row, const OtherRows &others, Findings &findings);
