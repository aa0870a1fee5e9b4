#include "tests/reliability/FaultScene.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <ostream>
#include <stdexcept>

namespace {

struct Way
{
    FaultAct act;
    int error;
};

/// What can happen to a call, apart from the death of the process.
std::vector<Way> failuresOf(FaultCall call)
{
    switch (call) {
    case FaultCall::Open:
        return {{FaultAct::Fail, EIO}, {FaultAct::Fail, EINTR}, {FaultAct::FailFromThere, EACCES}};
    case FaultCall::Read:
        return {{FaultAct::Fail, EIO}, {FaultAct::Fail, EINTR}, {FaultAct::Short, 0}};
    case FaultCall::Write:
        return {{FaultAct::Fail, EIO}, {FaultAct::Fail, EINTR}, {FaultAct::FailFromThere, ENOSPC}, {FaultAct::Short, 0},
            {FaultAct::ShortThenFail, ENOSPC}};
    case FaultCall::Fsync:
        return {{FaultAct::Fail, EIO}, {FaultAct::Fail, EINTR}, {FaultAct::FailFromThere, ENOSPC}};
    case FaultCall::Close:
        return {{FaultAct::Fail, EIO}, {FaultAct::Fail, EINTR}};
    case FaultCall::Rename:
    case FaultCall::Unlink:
    case FaultCall::Stat:
        return {{FaultAct::Fail, EIO}, {FaultAct::FailFromThere, EACCES}};
    case FaultCall::Mkdir:
        return {{FaultAct::Fail, EIO}, {FaultAct::FailFromThere, ENOSPC}};
    case FaultCall::Opendir:
        return {
            {FaultAct::Fail, EIO}, {FaultAct::Fail, EINTR}, {FaultAct::FailFromThere, EACCES}, {FaultAct::Short, EIO}};
    case FaultCall::Chmod:
        return {{FaultAct::Fail, EIO}, {FaultAct::FailFromThere, EPERM}};
    case FaultCall::Lock:
        return {{FaultAct::Fail, EIO}, {FaultAct::FailFromThere, ENOLCK}};
    }
    return {};
}

/// Death behind a call that changes nothing is death before the next one.
bool changesTheDisk(FaultCall call)
{
    static constexpr FaultCall readers[] = {
        FaultCall::Read, FaultCall::Close, FaultCall::Opendir, FaultCall::Stat, FaultCall::Lock};
    return std::ranges::find(readers, call) == std::end(readers);
}

} // namespace

void PrintTo(const FaultScene &scene, std::ostream *out)
{
    *out << scene.name;
}

void PrintTo(FaultCall call, std::ostream *out)
{
    *out << nameOf(call);
}

std::vector<Fault> faultsOf(FaultCall call)
{
    std::vector<Fault> faults;
    for (const auto &[act, error] : failuresOf(call)) {
        faults.push_back({.call = call, .act = act, .error = error, .number = 1});
    }
    faults.push_back({.call = call, .act = FaultAct::KillBefore, .error = 0, .number = 1});
    if (changesTheDisk(call)) {
        faults.push_back({.call = call, .act = FaultAct::KillAfter, .error = 0, .number = 1});
    }
    return faults;
}

std::string nameOf(const Fault &fault)
{
    const char *error = fault.error != 0 ? ::strerrorname_np(fault.error) : "-";
    return std::string(nameOf(fault.call)) + ':' + nameOf(fault.act) + ':' + error + ':' + std::to_string(fault.number);
}

Fault faultNamed(const std::string &name)
{
    const int number = std::atoi(name.substr(name.rfind(':') + 1).c_str());
    for (std::size_t call = 0; call < faultCallCount; ++call) {
        for (Fault fault : faultsOf(static_cast<FaultCall>(call))) {
            fault.number = number;
            if (nameOf(fault) == name) {
                return fault;
            }
        }
    }
    throw std::invalid_argument("no fault " + name);
}
