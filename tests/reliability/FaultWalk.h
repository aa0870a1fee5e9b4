#pragma once

#include "tests/reliability/FaultInjector.h"
#include "tests/reliability/FaultVerdict.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// Walks over the points of one call in one scene: every time that the call is made, with everything that can happen to
/// it. All slots of the injector are at work at a time.
class FaultWalk
{
public:
    FaultWalk(FaultInjector &injector, const FaultScene &scene, int rows);

    /// Lets the first and each step-th call after it be struck, and the last one.
    void addPoints(FaultCall call, int step);
    /// Adds one point, and tells the calls one by one.
    void addPoint(const Fault &fault);
    void run();

    /// What is wrong, and at which points.
    const std::map<std::string, std::vector<std::string>> &found() const { return m_found; }

private:
    /// One point under way in a slot.
    struct Visit
    {
        FaultSlot *slot;
        Fault fault = {};
        std::optional<BeforeSession> before = std::nullopt;
        std::vector<std::string> faults = {};
        std::optional<std::string> found = std::nullopt; ///< in the file at the next start
        std::string name = {};
        std::chrono::milliseconds stoodStill{}; ///< the machine, meanwhile
        bool isUnderWay = false;
        bool isReached = false;
        bool isResumed = false;
        bool isRepeated = false; ///< took too long before
        bool work = false; ///< whether the new content must come through
    };

    void begin(Visit &visit);
    void visitAgain(Visit &visit);
    void start(Visit &visit);
    void proceed(Visit &visit);
    void resume(Visit &visit, SessionEnd end);
    void close(Visit &visit);
    std::chrono::milliseconds allowed(const Visit &visit) const;

    FaultInjector &m_injector;
    FaultScene m_scene;
    int m_rows;
    std::vector<Fault> m_points;
    bool m_trace = false;
    std::size_t m_next = 0;
    std::map<std::string, std::vector<std::string>> m_found;
};
