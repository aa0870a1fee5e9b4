#include "tests/reliability/FaultInjector.h"

#include "tests/reliability/FaultDisk.h"
#include "tests/support/FrameTest.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t slotCount = 2;

/// In memory where the system has such a folder: some thousand places are made and removed.
fs::path folderOfPlaces()
{
    const fs::path memory = "/dev/shm";
    const bool isUsable = ::access(memory.c_str(), W_OK) == 0 && !std::getenv("TMPDIR");
    return (isUsable ? memory : fs::temp_directory_path()) / ("tabrix-faults-" + std::to_string(::getpid()));
}

/// Reaches what FrameTest keeps for its descendants.
class Documents : public FrameTest
{
public:
    using FrameTest::document;
};

std::string earlierContent(int rows)
{
    return Documents::document(rows).toStdString();
}

std::string changedContent(int rows)
{
    constexpr std::string_view oldName = "Parameter 1,";
    std::string content = earlierContent(rows);
    return content.replace(content.find(oldName), oldName.size() - 1, newName);
}

/// Runs a session without faults, which must have nothing to complain of.
void runSmoothly(FaultSlot &slot, Session session)
{
    slot.start(session, {});
    const SessionEnd end = slot.finish(60s);
    const SessionReport &report = slot.report();
    const std::string complaints = std::string(report.remarks.data()) + report.messages.data();
    if (!complaints.empty() || (end != SessionEnd::Left && session != Session::Abandon)) {
        throw std::runtime_error("a session without faults does not go well: " + complaints);
    }
}

} // namespace

FaultInjector::FaultInjector() : m_folder(folderOfPlaces())
{
    for (std::size_t i = 0; i < slotCount; ++i) {
        m_slots.push_back(std::make_unique<FaultSlot>(m_folder / std::to_string(i)));
    }
}

FaultInjector::~FaultInjector()
{
    std::error_code error;
    fs::remove_all(m_folder, error);
}

void FaultInjector::makeHome(FaultSlot &slot, Home home)
{
    slot.clear();
    FaultDisk::write(slot.place.file(), slot.place.earlier);
    if (home != Home::Fresh) {
        runSmoothly(slot, Session::Prepare);
        FaultDisk::write(slot.place.file(), slot.place.earlier);
    }
    if (home == Home::Crashed) {
        runSmoothly(slot, Session::Abandon);
    }
}

void FaultInjector::setUp(FaultSlot &slot, const FaultScene &scene, int rows)
{
    slot.place.earlier = earlierContent(rows);
    slot.place.changed = changedContent(rows);
    const std::string name = std::to_string(static_cast<int>(scene.home)) + "-" + std::to_string(rows);
    if (!slot.isKept(name)) {
        makeHome(slot, scene.home);
        slot.keep(name);
    }
    slot.restore(name);
}

const FaultCourse &FaultInjector::course(const FaultScene &scene, int rows)
{
    FaultCourse &course = m_courses[{scene.name, rows}];
    if (course.duration == 0ms) {
        FaultSlot &slot = *m_slots.front();
        setUp(slot, scene, rows);
        runSmoothly(slot, scene.session);
        course.duration = slot.age();
        std::ranges::copy(slot.plan().counts, course.counts.begin());
        std::ranges::copy(slot.plan().rootCounts, course.rootCounts.begin());
    }
    return course;
}

void FaultInjector::count(const Fault &fault, bool isReached, bool isFaulty)
{
    auto &[points, faulty] = m_walked[std::string(nameOf(fault.call)) + ' ' + nameOf(fault.act)];
    ++points;
    faulty += isFaulty ? 1 : 0;
    m_unreached += isReached ? 0 : 1;
}

void FaultInjector::printSummary() const
{
    int points = 0;
    int faulty = 0;
    for (const auto &[name, counts] : m_walked) {
        std::printf("%-24s %6d points, %d faulty\n", name.c_str(), counts.first, counts.second);
        points += counts.first;
        faulty += counts.second;
    }
    std::printf("%-24s %6d points, %d faulty, %d not reached\n", "in all", points, faulty, m_unreached);
}
