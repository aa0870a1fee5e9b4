#include "bench/SpeedTable.h"

#include "bench/SpeedRows.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace {

/// How often a row is measured; TABRIX_BENCH_RUNS=1 tells whether all still work.
int wantedRuns(int usual)
{
    const int wanted = qEnvironmentVariableIntValue("TABRIX_BENCH_RUNS");
    return wanted > 0 ? wanted : usual;
}

std::string formatted(const char *format, auto... values)
{
    std::array<char, 160> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

} // namespace

Measured sideBySide(const std::function<double()> &own, const std::function<double()> &other, int runs)
{
    std::vector<double> owns;
    std::vector<double> others;
    const int last = wantedRuns(runs);
    for (int run = 0; run <= last; ++run) {
        const double first = own();
        const double second = other();
        if (run > 0) {
            owns.push_back(first);
            others.push_back(second);
        }
    }
    return {median(owns), median(others)};
}

void IdleCheck::look()
{
    constexpr int loops = 40;
    constexpr unsigned steps = 2'000'000;
    for (int loop = 0; loop < loops; ++loop) {
        const auto begin = std::chrono::steady_clock::now();
        volatile unsigned sum = 0;
        for (unsigned step = 0; step < steps; ++step) {
            sum = sum + step;
        }
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - begin;
        m_milliseconds.push_back(taken.count());
    }
}

void IdleCheck::print() const
{
    constexpr double tolerance = 1.1;
    const double least = *std::ranges::min_element(m_milliseconds);
    const auto slow = std::ranges::count_if(m_milliseconds, [=](double taken) { return taken > tolerance * least; });
    const double share = double(slow) / double(m_milliseconds.size());
    std::printf(
        "\nThe machine was %s: %.0f %% of the calibration loops took more than a tenth longer than the fastest.\n",
        share > 0.1 ? "BUSY, do not trust these figures" : "idle", 100 * share);
}

void SpeedTable::print(const std::string &what, const std::string &against, const std::string &figures, bool pass)
{
    std::printf("| %s | %s | %s | %s |\n", what.c_str(), against.c_str(), figures.c_str(), pass ? "pass" : "short");
    std::fflush(stdout);
}

void SpeedTable::add(
    const std::string &what, const std::string &against, const char *unit, Measured measured, double max)
{
    const double ratio = measured.own / measured.other;
    print(what, against,
        formatted("%.2f %s | %.2f %s | %.2f | <= %.2g", measured.own, unit, measured.other, unit, ratio, max),
        ratio <= max);
}

void SpeedTable::addFaster(const std::string &what, const std::string &against, Measured measured, double min)
{
    const double ratio = measured.other / measured.own;
    print(what, against,
        formatted("%.1f ms | %.1f ms | %.1f times faster | >= %.0f", measured.own, measured.other, ratio, min),
        ratio >= min);
}

void SpeedTable::addGrowth(const std::string &what, double largest, double typical)
{
    constexpr double microseconds = 1000;
    constexpr double max = 1.1;
    add(what + ", growth to 32,767 rows", "1,000 rows", "us a row",
        {largest * microseconds / maxRows, typical * microseconds / typicalRows}, max);
}

void SpeedTable::addLimit(const std::string &what, const char *unit, double own, double max)
{
    print(what, "", formatted("%.2f %s | | | <= %.0f %s", own, unit, max, unit), own <= max);
}

void SpeedTable::addLeast(const std::string &what, const char *unit, double own, double min)
{
    print(what, "", formatted("%.0f %s | | | >= %.0f %s", own, unit, min, unit), own >= min);
}

void SpeedTable::addSkipped(const std::string &what, const std::string &why)
{
    std::printf("| %s | %s | | | | | skipped |\n", what.c_str(), why.c_str());
}
