#pragma once

#include "tests/reliability/FaultSlot.h"

#include <optional>
#include <string>
#include <vector>

/// What was on the disk before a session.
struct BeforeSession
{
    std::vector<std::string> versions;
    std::optional<std::string> settings;

    explicit BeforeSession(const SessionPlace &place);
};

/// What is wrong after a session with a fault; empty when all promises hold.
std::vector<std::string> faultsOf(Session session, const FaultSlot &slot, SessionEnd end, const BeforeSession &before);

/// What is wrong after the next start without a fault, which found that content in the file. work: whether the new
/// content must have come through.
std::vector<std::string> faultsOfResume(
    Session session, const FaultSlot &slot, SessionEnd end, const std::optional<std::string> &found, bool work);
