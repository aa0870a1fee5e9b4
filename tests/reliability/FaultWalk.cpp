#include "tests/reliability/FaultWalk.h"

#include "tests/reliability/FaultDisk.h"

#include <algorithm>
#include <cstdio>
#include <thread>

using namespace std::chrono_literals;

FaultWalk::FaultWalk(FaultInjector &injector, const FaultScene &scene, int rows)
    : m_injector(injector), m_scene(scene), m_rows(rows)
{
}

void FaultWalk::addPoints(FaultCall call, int step)
{
    const int count = m_injector.course(m_scene, m_rows).counts.at(static_cast<std::size_t>(call));
    for (Fault fault : faultsOf(call)) {
        for (fault.number = 1; fault.number < count; fault.number += step) {
            m_points.push_back(fault);
        }
        if (count > 0) {
            fault.number = count;
            m_points.push_back(fault);
        }
    }
}

void FaultWalk::addPoint(const Fault &fault)
{
    m_points.push_back(fault);
    m_trace = true;
}

/// A promise of the program; more only where even a session without faults takes long, or where the machine stood
/// still.
std::chrono::milliseconds FaultWalk::allowed(const Visit &visit) const
{
    return visit.stoodStill + std::max<std::chrono::milliseconds>(5s, 20 * m_injector.course(m_scene, m_rows).duration);
}

void FaultWalk::run()
{
    m_injector.course(m_scene, m_rows);
    std::vector<Visit> visits;
    for (const auto &slot : m_injector.slots()) {
        visits.push_back({.slot = slot.get()});
        begin(visits.back());
    }
    auto last = std::chrono::steady_clock::now();
    while (std::ranges::any_of(visits, &Visit::isUnderWay)) {
        const auto now = std::chrono::steady_clock::now();
        const auto pause = std::chrono::duration_cast<std::chrono::milliseconds>(now - last);
        last = now;
        for (Visit &visit : visits) {
            visit.stoodStill += pause > 100ms ? pause : 0ms; // this test was not let run either
            proceed(visit);
        }
        std::this_thread::sleep_for(500us);
    }
}

void FaultWalk::begin(Visit &visit)
{
    visit = {.slot = visit.slot};
    if (m_next == m_points.size()) {
        return;
    }
    visit.fault = m_points.at(m_next++);
    start(visit);
}

/// A machine with other work may stand still for seconds; what hangs does so again.
void FaultWalk::visitAgain(Visit &visit)
{
    std::printf("took too long once: %s\n", visit.name.c_str());
    visit = {.slot = visit.slot, .fault = visit.fault, .isRepeated = true};
    start(visit);
}

void FaultWalk::start(Visit &visit)
{
    visit.name = nameOf(visit.fault);
    visit.isUnderWay = true;
    m_injector.setUp(*visit.slot, m_scene, m_rows);
    visit.before.emplace(visit.slot->place);
    visit.slot->start(m_scene.session, visit.fault, m_trace);
}

void FaultWalk::proceed(Visit &visit)
{
    if (!visit.isUnderWay) {
        return;
    }
    const SessionEnd end = visit.slot->look(allowed(visit));
    if (end == SessionEnd::Running) {
        return;
    }
    if (end == SessionEnd::Hung && !visit.isRepeated) {
        visitAgain(visit);
        return;
    }
    if (!visit.isResumed) {
        resume(visit, end);
        return;
    }
    for (const std::string &fault : faultsOfResume(m_scene.session, *visit.slot, end, visit.found, visit.work)) {
        visit.faults.push_back(fault);
    }
    close(visit);
}

/// Judges the session with the fault, and starts the one after it.
void FaultWalk::resume(Visit &visit, SessionEnd end)
{
    FaultSlot &slot = *visit.slot;
    visit.faults = faultsOf(m_scene.session, slot, end, *visit.before);
    const FaultPlan &plan = slot.plan();
    if (plan.struck) {
        const std::string path = plan.struckAt.data();
        visit.name += ' ';
        visit.name += path.substr(std::min(path.size(), slot.place.folder.size() + 1));
    }
    visit.isReached = plan.struck;
    visit.found = FaultDisk::content(slot.place.file());
    const bool leftWhole = end == SessionEnd::Left;
    visit.work = m_scene.session != Session::Start
        && (leftWhole || slot.report().hasCopy || m_scene.session != Session::Save
            || visit.found == slot.place.changed);
    visit.isResumed = true;
    slot.start(Session::Resume, {});
}

void FaultWalk::close(Visit &visit)
{
    m_injector.count(visit.fault, visit.isReached, !visit.faults.empty());
    std::ranges::sort(visit.faults);
    visit.faults.erase(std::unique(visit.faults.begin(), visit.faults.end()), visit.faults.end());
    for (const std::string &fault : visit.faults) {
        m_found[fault].push_back(visit.name);
    }
    begin(visit);
}
