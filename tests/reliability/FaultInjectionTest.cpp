// Makes each call on the files of document, backups, recovery and settings fail in turn, in sessions of the real
// program, and looks what is left.
//
// TABRIX_FAULT_STEP walks each so-manieth point only; TABRIX_FAULT_POINT is the name of a single one, whose calls are
// told one by one. A filter of the tests chooses scene, rows and call.

#include "tests/reliability/FaultWalk.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <set>
#include <tuple>
#include <unistd.h>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int defaultStep = 9; // each costs some ten times as much
#else
constexpr int defaultStep = 1;
#endif

int chosenStep()
{
    const char *step = std::getenv("TABRIX_FAULT_STEP");
    return step ? std::max(1, std::atoi(step)) : defaultStep;
}

std::unique_ptr<FaultInjector> injector;

/// Where the sanitizers' library must come first, it is named before ours.
std::string sanitizers()
{
    std::ifstream maps("/proc/self/maps");
    std::set<std::string> libraries;
    for (std::string line; std::getline(maps, line);) {
        if (line.find("/libasan.") != std::string::npos) {
            libraries.insert(line.substr(line.find('/')));
        }
    }
    return libraries.empty() ? "" : *libraries.begin() + ":";
}

/// Begins anew with the fault library before all others.
void beginWithLibrary(char **arguments)
{
    const std::string libraries = sanitizers() + TABRIX_FAULT_LIBRARY;
    ::setenv("LD_PRELOAD", libraries.c_str(), 1);
    ::setenv("LD_BIND_NOW", "1", 1); // or each session would look for its symbols anew
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::execv("/proc/self/exe", arguments);
    std::perror("the fault library cannot be loaded");
    std::exit(1);
}

std::vector<FaultCall> allCalls()
{
    std::vector<FaultCall> calls;
    for (std::size_t call = 0; call < faultCallCount; ++call) {
        calls.push_back(static_cast<FaultCall>(call));
    }
    return calls;
}

/// How often a call is made in all scenes.
int timesMade(FaultCall call)
{
    int times = 0;
    for (const FaultScene &scene : faultScenes) {
        times += injector->course(scene, 3).counts.at(static_cast<std::size_t>(call));
    }
    return times;
}

} // namespace

// Were a call made by another name than the library knows, its walk would have no points.
TEST(FaultLibrary, meetsEveryCallAndEveryPlace)
{
    for (const FaultCall call : allCalls()) {
        if (call == FaultCall::Chmod) {
            continue; // rights are given where a file is made
        }
        EXPECT_GT(timesMade(call), 0) << nameOf(call);
    }
    for (const FaultScene &scene : faultScenes) {
        const auto &places = injector->course(scene, 3).rootCounts;
        EXPECT_GT(places.at(DocumentRoot), 0) << scene.name;
        EXPECT_GT(places.at(DataFiles), 0) << scene.name;
        EXPECT_TRUE(places.at(ConfigFiles) > 0 || scene.session == Session::Save) << scene.name;
    }
}

/// Scene, rows and call.
using FaultParameters = std::tuple<FaultScene, int, FaultCall>;

class FaultInjection : public testing::TestWithParam<FaultParameters>
{
};

TEST_P(FaultInjection, costsNothingAndIsToldTruly)
{
    const auto &[scene, rows, call] = GetParam();
    FaultWalk walk(*injector, scene, rows);
    if (const char *point = std::getenv("TABRIX_FAULT_POINT")) {
        walk.addPoint(faultNamed(point));
    } else {
        walk.addPoints(call, chosenStep());
    }
    walk.run();
    for (const auto &[fault, points] : walk.found()) {
        std::string names;
        for (const std::string &name : points) {
            names += "\n    " + name;
        }
        ADD_FAILURE() << fault << names;
    }
}

namespace {

std::string testName(const testing::TestParamInfo<FaultParameters> &parameters)
{
    const auto &[scene, rows, call] = parameters.param;
    return std::string(scene.name) + '_' + std::to_string(rows) + '_' + nameOf(call);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Of, FaultInjection,
    testing::Combine(testing::ValuesIn(faultScenes), testing::Values(3, 50, 429), testing::ValuesIn(allCalls())),
    testName);

int main(int argc, char **argv)
{
    if (!::dlsym(RTLD_DEFAULT, setFaultPlanName)) {
        beginWithLibrary(argv);
    }
    testing::InitGoogleTest(&argc, argv);
    const std::unique_ptr<QApplication> application = makeSessionApplication();
    injector = std::make_unique<FaultInjector>();
    const int result = RUN_ALL_TESTS();
    injector->printSummary();
    injector.reset();
    return result;
}
