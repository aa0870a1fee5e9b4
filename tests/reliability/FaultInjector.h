#pragma once

#include "tests/reliability/FaultScene.h"
#include "tests/reliability/FaultSlot.h"

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// How often each call is made in a scene without faults, and how long that takes.
struct FaultCourse
{
    std::array<int, faultCallCount> counts{}; ///< by kind of call
    std::array<int, FaultPlan::maxRoots> rootCounts{}; ///< by root of the plan
    std::chrono::milliseconds duration{};
};

/// The slots, and what stays known from one walk to the next.
class FaultInjector
{
public:
    FaultInjector();
    ~FaultInjector();
    FaultInjector(const FaultInjector &) = delete;
    FaultInjector &operator=(const FaultInjector &) = delete;

    const std::vector<std::unique_ptr<FaultSlot>> &slots() const { return m_slots; }
    /// Makes a slot's place what the scene begins with.
    void setUp(FaultSlot &slot, const FaultScene &scene, int rows);
    const FaultCourse &course(const FaultScene &scene, int rows);
    /// Takes note of one point that was walked; isReached: whether its call was made.
    void count(const Fault &fault, bool isReached, bool isFaulty);
    void printSummary() const;

private:
    void makeHome(FaultSlot &slot, Home home);

    std::filesystem::path m_folder;
    std::vector<std::unique_ptr<FaultSlot>> m_slots;
    std::map<std::pair<std::string_view, int>, FaultCourse> m_courses;
    std::map<std::string, std::pair<int, int>> m_walked; ///< by call and act: points, and the faulty ones of them
    int m_unreached = 0;
};
