#pragma once

#include "tests/reliability/FaultPlan.h"

#include <array>
#include <fcntl.h>
#include <sys/types.h>

/// What the fault library does with one call: FaultLibrary.cpp has the calls, this what becomes of them.

/// The plan that is followed; null when none is.
extern FaultPlan *followedPlan;

/// Whether calls count at present.
inline bool isArmed()
{
    return followedPlan && followedPlan->armed;
}

using FaultPath = std::array<char, FaultPlan::longestPath>;

/// The path that a descriptor was opened by, as it is now; empty when it has none.
FaultPath pathOf(int descriptor);
/// The absolute path of a name in a folder. An empty name means the descriptor itself.
FaultPath pathOf(int folder, const char *name);
/// Whether a path is in one of the plan's roots.
bool isWatched(const FaultPath &path);

/// What is to be done with one call, which counts. Ends the process with its own end where that is the plan. To be made
/// while armed only.
class FaultStrike
{
public:
    FaultStrike(FaultCall call, const FaultPath &path);
    ~FaultStrike();
    FaultStrike(const FaultStrike &) = delete;
    FaultStrike &operator=(const FaultStrike &) = delete;

    bool fails() const { return m_fails; }
    bool isShort() const { return m_isShort; }
    /// Sets errno, and returns what a call returns that has failed.
    static int failure();

private:
    void strike(bool isFirst, const FaultPath &path);

    bool m_fails = false;
    bool m_isShort = false;
    bool m_kills = false;
};

/// A call on a path, done by the last argument.
template <typename Call>
auto onPath(FaultCall kind, int folder, const char *name, const Call &call) -> decltype(call())
{
    if (!isArmed()) {
        return call();
    }
    const FaultStrike strike(kind, pathOf(folder, name));
    return strike.fails() ? static_cast<decltype(call())>(FaultStrike::failure()) : call();
}

/// A call on a descriptor, done by the last argument.
template <typename Call>
auto onDescriptor(FaultCall kind, int descriptor, const Call &call) -> decltype(call())
{
    return onPath(kind, descriptor, "", call);
}

/// A call that moves bytes: the last argument moves that many.
template <typename Call>
ssize_t moveBytes(FaultCall kind, int descriptor, std::size_t size, const Call &call)
{
    if (!isArmed()) {
        return call(size);
    }
    const FaultStrike strike(kind, pathOf(descriptor));
    if (strike.fails()) {
        return FaultStrike::failure();
    }
    return call(strike.isShort() && size > 1 ? size / 2 : size);
}

/// A call that gives a file another name, done by the last argument. It counts when either name is watched.
template <typename Call>
int renameBetween(int from, const char *name, int to, const char *newName, const Call &call)
{
    if (!isArmed()) {
        return call();
    }
    const FaultPath path = pathOf(from, name);
    const FaultStrike strike(FaultCall::Rename, isWatched(path) ? path : pathOf(to, newName));
    return strike.fails() ? FaultStrike::failure() : call();
}
