#include "tests/reliability/FaultSlot.h"

#include <csignal>
#include <cstdio>
#include <iterator>
#include <new>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// The document's folder, and what is the program's own in the user's folders; in the order of WatchedRoot.
void watch(const SessionPlace &place, FaultPlan &plan)
{
    const std::string roots[] = {place.folder + "/desk/", place.data(), place.data() + "/Tabrix",
        place.data() + "/Tabrix/", place.config(), place.config() + "/Tabrix", place.config() + "/Tabrix/"};
    static_assert(std::size(roots) <= FaultPlan::maxRoots);
    for (std::size_t i = 0; i < std::size(roots); ++i) {
        roots[i].copy(plan.roots.at(i).data(), FaultPlan::longestPath - 1);
    }
}

} // namespace

FaultSlot::FaultSlot(const fs::path &folder) : m_folder(folder)
{
    void *memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        throw std::runtime_error("no memory to share");
    }
    m_shared = new (memory) Shared;
    place.folder = folder / "place";
}

FaultSlot::~FaultSlot()
{
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    ::munmap(m_shared, sizeof(Shared));
}

void FaultSlot::clear()
{
    fs::remove_all(place.folder);
    fs::create_directories(place.folder + "/desk");
}

void FaultSlot::keep(const std::string &name)
{
    fs::copy(place.folder, m_folder / name, fs::copy_options::recursive);
}

void FaultSlot::restore(const std::string &name)
{
    fs::remove_all(place.folder);
    fs::copy(m_folder / name, place.folder, fs::copy_options::recursive);
}

bool FaultSlot::isKept(const std::string &name) const
{
    return fs::exists(m_folder / name);
}

void FaultSlot::start(Session session, const Fault &fault, bool trace)
{
    m_shared = new (m_shared) Shared;
    m_shared->plan.fault = fault;
    m_shared->plan.trace = trace;
    watch(place, m_shared->plan);
    std::fflush(nullptr);
    m_started = std::chrono::steady_clock::now();
    m_process = ::fork();
    if (m_process == 0) {
        if (!trace && !std::freopen("/dev/null", "w", stderr)) {
            ::_exit(2);
        }
        runSession(session, place, m_shared->plan, m_shared->report);
    }
}

SessionEnd FaultSlot::look(std::chrono::milliseconds allowed)
{
    int status = 0;
    const bool hasEnded = ::waitpid(m_process, &status, WNOHANG) == m_process;
    if (!hasEnded && age() < allowed) {
        return SessionEnd::Running;
    }
    if (!hasEnded) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, &status, 0);
    }
    m_process = -1;
    if (!hasEnded) {
        return SessionEnd::Hung;
    }
    if (WIFSIGNALED(status)) {
        return WTERMSIG(status) == SIGKILL ? SessionEnd::Killed : SessionEnd::Crashed;
    }
    return WEXITSTATUS(status) == 0 && m_shared->report.isOver ? SessionEnd::Left : SessionEnd::Crashed;
}

SessionEnd FaultSlot::finish(std::chrono::milliseconds allowed)
{
    for (;;) {
        if (const SessionEnd end = look(allowed); end != SessionEnd::Running) {
            return end;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

std::chrono::milliseconds FaultSlot::age() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - m_started);
}
