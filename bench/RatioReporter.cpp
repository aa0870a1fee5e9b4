#include "bench/RatioReporter.h"

#include <array>
#include <cstdio>

namespace {

std::string limitText(const Ratio &ratio)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), ratio.maxTime > 0 ? "%.0f ms" : "%.2f",
        ratio.maxTime > 0 ? ratio.maxTime : ratio.target);
    return text.data();
}

} // namespace

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
    std::printf("\n%-52s %10s %10s %7s %7s\n", "ratio of medians", "ms", "baseline ms", "ratio", "target");
    for (const Ratio &ratio : m_ratios) {
        const auto measured = m_medians.find(ratio.measured);
        const auto baseline = m_medians.find(ratio.baseline);
        if (measured == m_medians.end() || baseline == m_medians.end()) {
            continue;
        }
        const double value = measured->second / baseline->second;
        const bool pass = ratio.maxTime > 0 ? measured->second <= ratio.maxTime : value <= ratio.target;
        std::printf("%-52s %10.3f %10.3f %7.2f %7s %s\n", ratio.what.c_str(), measured->second, baseline->second, value,
            limitText(ratio).c_str(), pass ? "pass" : "short");
    }
}
