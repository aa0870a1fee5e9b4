#pragma once

#include "check/Finding.h"
#include "document/MachineInfo.h"

/// What is wrong in itself in the machine information: capacities out of order or twice, values that the printed page
/// cuts.
Findings checkMachine(const MachineInfo &info);
