#include "tests/reliability/FaultVerdict.h"

#include "tests/reliability/FaultDisk.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sstream>
#include <string_view>

namespace {

using Faults = std::vector<std::string>;

void add(Faults &faults, const std::string &fault)
{
    if (!fault.empty()) {
        faults.push_back(fault);
    }
}

std::vector<std::string> lines(const char *text)
{
    std::vector<std::string> found;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        found.push_back(line);
    }
    return found;
}

/// Texts that name no reason or the program's own stumbling.
bool isRiddle(const std::string &message)
{
    static constexpr std::string_view riddles[] = {
        "Unknown error", "Bad file descriptor", "Illegal seek", "No error", "Success", "does not exist"};
    return message.empty()
        || std::ranges::any_of(riddles, [&](auto riddle) { return message.find(riddle) != std::string::npos; });
}

/// A fault that a program steps over: an interrupted call is repeated, a part is followed by the rest.
bool mustPassUnseen(const Fault &fault)
{
    return (fault.act == FaultAct::Fail && fault.error == EINTR)
        || (fault.act == FaultAct::Short && fault.call != FaultCall::Opendir);
}

/// A disk that did not confirm the document, or the version of what it replaced. The note beside the versions, which
/// says whose they are, is only of use for tidying.
bool mustBeTold(const FaultPlan &plan)
{
    const bool isNote = std::string_view(plan.struckAt.data()).find(".document") != std::string_view::npos;
    return wasWaitRefused(plan, "/desk/") || (wasWaitRefused(plan, "/backups/") && !isNote);
}

/// A document that was recovered while its file could not be looked at asks before it replaces the file: nobody knows
/// whether that has changed since the crash.
bool mayAsk(Session session, const FaultPlan &plan, const std::string &message)
{
    return session == Session::Recover && plan.fault.call == FaultCall::Stat
        && std::string_view(plan.struckAt.data()).find("/desk/") != std::string_view::npos
        && message.find("was not opened or saved here. Replace it?") != std::string::npos;
}

/// What a close that is called off says behind the reason, when it is so.
bool isConsequence(const SessionReport &report, const std::string &message, const std::string &reason)
{
    return report.staysOpen && message.find("The window stays open") != std::string::npos
        && std::string_view(report.messages.data()).find(reason) != std::string_view::npos;
}

Faults faultsOfMessages(Session session, const FaultPlan &plan, const SessionReport &report)
{
    const Fault &fault = plan.fault;
    Faults faults;
    const std::string reason = std::strerror(fault.error);
    const auto isQuestion = [&](const std::string &message) { return mayAsk(session, plan, message); };
    for (const std::string &message : lines(report.messages.data())) {
        if (isQuestion(message) || isConsequence(report, message, reason)) {
            continue;
        }
        if (mustPassUnseen(fault)) {
            faults.push_back("an unneeded message: " + message);
        } else if (isRiddle(message) || message.find(reason) == std::string::npos) {
            faults.push_back("a message that is not true: " + message);
        }
    }
    if (report.failed && report.messages.front() == '\0') {
        faults.emplace_back("failed without a word");
    }
    if (mustBeTold(plan) && report.messages.front() == '\0') {
        faults.emplace_back("the disk did not confirm what was written, and nobody is told");
    }
    if (report.failed && mustPassUnseen(fault)) {
        faults.emplace_back("failed, and need not");
    }
    for (const std::string &message : lines(report.laterMessages.data())) {
        if (isQuestion(message)) {
            continue;
        }
        faults.push_back("a message at the second try: " + message);
    }
    return faults;
}

Faults faultsOfEnd(SessionEnd end, bool mayBeKilled)
{
    switch (end) {
    case SessionEnd::Hung:
        return {"hangs"};
    case SessionEnd::Crashed:
        return {"crashes"};
    case SessionEnd::Killed:
        return mayBeKilled ? Faults{} : Faults{"is killed"};
    case SessionEnd::Running:
    case SessionEnd::Left:
        break;
    }
    return {};
}

} // namespace

BeforeSession::BeforeSession(const SessionPlace &place)
    : versions(FaultDisk::versions(place)), settings(FaultDisk::content(place.config() + "/Tabrix/Tabrix.conf"))
{
}

Faults faultsOf(Session session, const FaultSlot &slot, SessionEnd end, const BeforeSession &before)
{
    const FaultPlan &plan = slot.plan();
    const FaultAct act = plan.fault.act;
    const bool kills = act == FaultAct::KillBefore || act == FaultAct::KillAfter;
    Faults faults = faultsOfEnd(end, kills && plan.struck);
    for (const std::string &remark : lines(slot.report().remarks.data())) {
        faults.push_back(remark);
    }
    if (end == SessionEnd::Left) {
        for (const std::string &fault : faultsOfMessages(session, plan, slot.report())) {
            faults.push_back(fault);
        }
    }
    add(faults, FaultDisk::faultOfFile(slot.place));
    add(faults, FaultDisk::faultOfVersions(slot.place, before.versions));
    add(faults, FaultDisk::faultOfSettings(slot.place, before.settings));
    if (session == Session::Start && FaultDisk::content(slot.place.file()) != slot.place.earlier) {
        faults.emplace_back("a start changes the file");
    }
    return faults;
}

Faults faultsOfResume(
    Session session, const FaultSlot &slot, SessionEnd end, const std::optional<std::string> &found, bool work)
{
    Faults faults = faultsOfEnd(end, false);
    const SessionPlace &place = slot.place;
    const bool wasTorn = found != place.earlier && found != place.changed;
    if (!wasTorn) {
        for (const std::string &line : lines(slot.report().messages.data())) {
            faults.push_back("a message at the next start: " + line);
        }
        for (const std::string &line : lines(slot.report().remarks.data())) {
            faults.push_back(line);
        }
    }
    const std::optional<std::string> content = FaultDisk::content(place.file());
    if (work && content != place.changed) {
        faults.emplace_back("the work is lost: the next start does not bring it into the file");
    }
    if (!work && content != place.earlier && content != place.changed) {
        faults.emplace_back("the file is torn, and the next start brings nothing back");
    }
    if (session == Session::Recover && !slot.report().hasCopy) {
        faults.emplace_back("the untitled work is lost");
    }
    add(faults, FaultDisk::faultOfFile(place));
    const std::string settings = FaultDisk::content(place.config() + "/Tabrix/Tabrix.conf").value_or("");
    if (!wasTorn && settings.find(place.file()) == std::string::npos) {
        faults.emplace_back("the next start stores no settings");
    }
    return faults;
}
