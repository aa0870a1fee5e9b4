#pragma once

#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <string_view>

/// What the preloaded fault library (FaultLibrary.cpp) and the test that steers it share: plain memory that outlives a
/// killed process. No Qt here, since the library stands below everything.

/// The system's calls by kinds; a kind stands for all forms of a call.
enum class FaultCall { Open, Read, Write, Fsync, Close, Rename, Unlink, Mkdir, Opendir, Stat, Chmod, Lock };
inline constexpr std::size_t faultCallCount = 12;

enum class FaultAct {
    None, ///< calls are only counted
    Fail, ///< the call fails, once
    FailFromThere, ///< it and all later ones of its kind fail
    Short, ///< a read or a write does a part, a listing breaks off with the error behind its first name
    ShortThenFail, ///< a write does a part, and all later ones fail
    KillBefore, ///< the process dies instead of the call
    KillAfter, ///< the call is done, and the process dies
};

/// What is to happen to one call.
struct Fault
{
    FaultCall call = FaultCall::Open;
    FaultAct act = FaultAct::None;
    int error = 0; ///< an errno; 0 where the act needs none
    int number = 0; ///< which of the calls of that kind, from 1
};

/// One fault, and what became of it. A call counts when it is about a path in one of the roots.
struct FaultPlan
{
    static constexpr std::size_t longestPath = 1024;
    static constexpr std::size_t maxRoots = 8;

    Fault fault;
    bool trace = false; ///< every call that counts is told on the standard error output
    std::array<std::array<char, longestPath>, maxRoots> roots{}; ///< absolute; with a "/" at its end: what is below it

    std::atomic<bool> armed = false;
    std::array<std::atomic<int>, faultCallCount> counts{}; ///< calls while armed, by kind
    std::array<std::atomic<int>, maxRoots> rootCounts{}; ///< the same, by root
    std::atomic<bool> struck = false;
    std::array<char, longestPath> struckAt{}; ///< the path of the call that was struck
};

inline const char *nameOf(FaultCall call)
{
    static constexpr std::array<const char *, faultCallCount> names = {
        "open", "read", "write", "fsync", "close", "rename", "unlink", "mkdir", "opendir", "stat", "chmod", "lock"};
    return names[static_cast<std::size_t>(call)];
}

inline const char *nameOf(FaultAct act)
{
    static constexpr std::array<const char *, 7> names = {
        "none", "fail", "fail-from-there", "short", "short-then-fail", "kill-before", "kill-after"};
    return names[static_cast<std::size_t>(act)];
}

/// Whether the struck call was a wait for the disk, on a path with that part, and the disk refused.
inline bool wasWaitRefused(const FaultPlan &plan, std::string_view part)
{
    const bool isRefused = plan.fault.call == FaultCall::Fsync && plan.fault.error != 0 && plan.fault.error != EINTR;
    return plan.struck && isRefused && std::string_view(plan.struckAt.data()).find(part) != std::string_view::npos;
}

/// The library's only entry of its own, found by dlsym(): from then on the calls of this process and of those that it
/// forks follow the plan. Null: none does.
using SetFaultPlan = void (*)(FaultPlan *plan);
inline constexpr const char *setFaultPlanName = "tabrixSetFaultPlan";
