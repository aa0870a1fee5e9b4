#pragma once

#include "tests/reliability/FaultSession.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <sys/types.h>

/// What a session ended with.
enum class SessionEnd { Running, Left, Killed, Crashed, Hung };

/// The roots that a session's plan watches, by their indices in it.
enum WatchedRoot { DocumentRoot, DataHome, DataRoot, DataFiles, ConfigHome, ConfigRoot, ConfigFiles };

/// A place of its own in which one session at a time runs, as a process.
class FaultSlot
{
public:
    /// folder: need not exist; everything below it is this slot's.
    explicit FaultSlot(const std::filesystem::path &folder);
    ~FaultSlot();
    FaultSlot(const FaultSlot &) = delete;
    FaultSlot &operator=(const FaultSlot &) = delete;

    SessionPlace place;

    /// Empties the place, or makes it as it was kept under that name.
    void clear();
    void keep(const std::string &name);
    void restore(const std::string &name);
    bool isKept(const std::string &name) const;

    /// Starts a session with that fault, and with an empty report.
    void start(Session session, const Fault &fault, bool trace = false);
    /// Looks how the session is; one that takes longer than allowed is ended.
    SessionEnd look(std::chrono::milliseconds allowed);
    /// Waits for the end of the session.
    SessionEnd finish(std::chrono::milliseconds allowed);

    const FaultPlan &plan() const { return m_shared->plan; }
    const SessionReport &report() const { return m_shared->report; }
    std::chrono::milliseconds age() const;

private:
    struct Shared
    {
        FaultPlan plan;
        SessionReport report;
    };

    std::filesystem::path m_folder;
    Shared *m_shared;
    pid_t m_process = -1;
    std::chrono::steady_clock::time_point m_started;
};
