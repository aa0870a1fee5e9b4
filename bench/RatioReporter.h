#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// A ratio that is wanted: of one benchmark's median to another's, and the most that it may be. Where a user waits, it
/// is the time itself that has a limit.
struct Ratio
{
    std::string what;
    std::string measured;
    std::string baseline;
    double target; ///< 0 for none
    double maxTime = 0; ///< in the benchmark's unit; 0 for no limit
};

/// Prints benchmarks as usual, and a table of ratios of their medians at the end.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    explicit RatioReporter(std::vector<Ratio> ratios)
        : benchmark::ConsoleReporter(OO_Tabular), m_ratios(std::move(ratios))
    {
    }

    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

private:
    std::vector<Ratio> m_ratios;
    std::map<std::string, double> m_medians; ///< by the benchmark's name, in its unit
};
