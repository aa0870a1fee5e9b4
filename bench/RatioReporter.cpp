#include "bench/RatioReporter.h"

#include <cstdio>

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    benchmark::ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs) {
        if (run.aggregate_name == "median") {
            m_medians[run.run_name.function_name + '/' + run.run_name.args] = run.GetAdjustedRealTime();
        }
    }
}

void RatioReporter::Finalize()
{
    benchmark::ConsoleReporter::Finalize();
    std::printf("\n%-52s %10s %10s %7s %7s\n", "ratio of medians", "ms", "floor ms", "ratio", "target");
    for (const Ratio &ratio : m_ratios) {
        const auto measured = m_medians.find(ratio.measured);
        const auto floor = m_medians.find(ratio.floor);
        if (measured == m_medians.end() || floor == m_medians.end()) {
            continue;
        }
        const double value = measured->second / floor->second;
        std::printf("%-52s %10.3f %10.3f %7.2f %7.2f %s\n", ratio.what.c_str(), measured->second, floor->second, value,
            ratio.target, value <= ratio.target ? "pass" : "short");
    }
}
