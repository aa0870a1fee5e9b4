#pragma once

#include "tests/reliability/FaultSession.h"

#include <optional>
#include <string>
#include <vector>

/// Looks at what a session has left on the disk by plain means: nothing here is the program's own code.
namespace FaultDisk {

/// Nothing when there is no such file.
std::optional<std::string> content(const std::string &file);
void write(const std::string &file, std::string_view bytes);

/// The contents of all backups, in any order.
std::vector<std::string> versions(const SessionPlace &place);
/// Whether a recovery copy, of whatever program, holds that text.
bool isInRecovery(const SessionPlace &place, std::string_view text);

/// What is wrong with the document's file and its backups; empty when the earlier or the new content is whole in the
/// file and what was overwritten is in the backups.
std::string faultOfFile(const SessionPlace &place);
/// What is wrong with the backups; empty when at most the oldest of the versions that were there is gone.
std::string faultOfVersions(const SessionPlace &place, const std::vector<std::string> &before);
/// What is wrong with the settings; empty when they are whole. before: their content before the session, or nothing.
std::string faultOfSettings(const SessionPlace &place, const std::optional<std::string> &before);

} // namespace FaultDisk
