#pragma once

#include "document/MachineInfo.h"
#include "runtime/Result.h"

#include <QString>

class AnsiBuffer;
class PrivateProfile;

/// Fills info from the "[Inverter]" section. Without a Name nothing is changed; otherwise the lists become exactly the
/// section's, and of the other fields those that the section has (a missing TypeCode becomes empty).
/// Fails if Paramater is not a 16-bit number; the fields before it have been read then.
Result<> ReadInverterSection(const PrivateProfile &profile, MachineInfo &info);

/// Puts the section's key lines into out. Fails, with what precedes the failure in out, if there are more
/// capacities than rated currents, or if the code page does not have a character.
Result<> WriteInverterSection(const MachineInfo &info, AnsiBuffer &out);
