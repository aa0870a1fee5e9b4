#include "tests/reliability/FaultStrike.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string_view>
#include <unistd.h>

FaultPlan *followedPlan = nullptr;

namespace {

bool isBelow(std::string_view path, std::string_view root)
{
    return root.ends_with('/') ? path.starts_with(root) : !root.empty() && path == root;
}

/// The index of the root that a path is in; the count of roots when it is in none.
std::size_t rootOf(const FaultPath &path)
{
    const auto &roots = followedPlan->roots;
    const auto found =
        std::ranges::find_if(roots, [&path](const auto &root) { return isBelow(path.data(), root.data()); });
    return static_cast<std::size_t>(found - roots.begin());
}

/// Whether the call of that number is the one that is meant, or one of those that fail after it.
bool isMeant(const Fault &fault, FaultCall call, int number)
{
    const bool goesOn = fault.act == FaultAct::FailFromThere || fault.act == FaultAct::ShortThenFail;
    return fault.act != FaultAct::None && call == fault.call
        && (goesOn ? number >= fault.number : number == fault.number);
}

void copyText(FaultPath &to, std::string_view from)
{
    const std::size_t length = std::min(from.size(), to.size() - 1);
    std::copy_n(from.begin(), length, to.begin());
    to.at(length) = '\0';
}

} // namespace

FaultPath pathOf(int descriptor)
{
    FaultPath link{};
    FaultPath path{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
    const int error = errno;
    const ssize_t length = ::readlink(link.data(), path.data(), path.size() - 1);
    errno = error;
    path.at(static_cast<std::size_t>(std::max<ssize_t>(length, 0))) = '\0';
    return path;
}

FaultPath pathOf(int folder, const char *name)
{
    FaultPath path{};
    if (!name || *name == '\0') {
        return pathOf(folder);
    }
    if (*name == '/') {
        copyText(path, name);
        return path;
    }
    FaultPath start{};
    if (folder != AT_FDCWD) {
        start = pathOf(folder);
    } else if (!::getcwd(start.data(), start.size())) {
        return path;
    }
    const int length = std::snprintf(path.data(), path.size(), "%s/%s", start.data(), name);
    return length < static_cast<int>(path.size()) ? path : FaultPath{};
}

bool isWatched(const FaultPath &path)
{
    return rootOf(path) < FaultPlan::maxRoots;
}

FaultStrike::FaultStrike(FaultCall call, const FaultPath &path)
{
    const std::size_t root = rootOf(path);
    if (root == FaultPlan::maxRoots) {
        return;
    }
    ++followedPlan->rootCounts.at(root);
    const int number = ++followedPlan->counts.at(static_cast<std::size_t>(call));
    const Fault &fault = followedPlan->fault;
    const bool isStruck = isMeant(fault, call, number);
    if (followedPlan->trace) {
        std::fprintf(stderr, "%s %d %s%s\n", nameOf(call), number, path.data(), isStruck ? "  <-- struck" : "");
    }
    if (isStruck) {
        strike(number == fault.number, path);
    }
}

FaultStrike::~FaultStrike()
{
    if (m_kills) {
        ::raise(SIGKILL);
    }
}

void FaultStrike::strike(bool isFirst, const FaultPath &path)
{
    if (isFirst) {
        followedPlan->struckAt = path;
        followedPlan->struck = true;
    }
    const FaultAct act = followedPlan->fault.act;
    if (act == FaultAct::KillBefore) {
        ::raise(SIGKILL);
    }
    m_kills = act == FaultAct::KillAfter;
    m_isShort = act == FaultAct::Short || (act == FaultAct::ShortThenFail && isFirst);
    m_fails = act == FaultAct::Fail || act == FaultAct::FailFromThere || (act == FaultAct::ShortThenFail && !isFirst);
}

int FaultStrike::failure()
{
    errno = followedPlan->fault.error;
    return -1;
}
