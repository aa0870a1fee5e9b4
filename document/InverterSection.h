#pragma once

#include "document/MachineInfo.h"
#include "runtime/FileFailure.h"

#include <QString>

#include <optional>

class AnsiBuffer;
class PrivateProfile;

/// Fills info from the "[Inverter]" section. Without a Name nothing is changed; otherwise the lists become exactly the
/// section's, and of the other fields those that the section has (a missing TypeCode becomes empty).
/// Fails when Paramater is not a 16-bit number; the fields before it have been read then.
std::optional<FileFailure> ReadInverterSection(const PrivateProfile &profile, MachineInfo &info);

/// Puts the section's key lines into out. Fails, with what stands before the failure in out, when there are more
/// capacities than rated currents, or when the code page does not have a character.
std::optional<FileFailure> WriteInverterSection(const MachineInfo &info, AnsiBuffer &out);
