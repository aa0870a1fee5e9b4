#pragma once

#include "bench/Stopwatch.h"

#include <functional>
#include <string>
#include <vector>

/// What Tabrix and its yardstick take, in the unit of the row.
struct Measured
{
    double own;
    double other;
};

/// Runs both in turn, so that both meet the same machine, and takes the median of each: an odd number of runs, after
/// one that warms the caches.
Measured sideBySide(const std::function<double()> &own, const std::function<double()> &other, int runs = 11);

/// Whether the machine had nothing else to do: the same loop must always take the same time.
class IdleCheck
{
public:
    /// Runs the loop; to be called before, between and after the rows.
    void look();
    /// Says below the table what the loops took, and whether that makes the figures doubtful.
    void print() const;

private:
    std::vector<double> m_milliseconds;
};

/// The table of what users feel: each row a measurement beside its yardstick, with a target.
class SpeedTable
{
public:
    /// The ratio own / other may be max at most.
    void add(const std::string &what, const std::string &against, const char *unit, Measured measured, double max);
    /// The ratio other / own must be min at least: how many times faster than another program.
    void addFaster(const std::string &what, const std::string &against, Measured measured, double min);
    /// How what takes so many milliseconds at the greatest number of rows grows from a typical number of them.
    void addGrowth(const std::string &what, double largest, double typical);
    /// A plain figure that may be max at most.
    void addLimit(const std::string &what, const char *unit, double own, double max);
    /// A plain figure that must be min at least.
    void addLeast(const std::string &what, const char *unit, double own, double min);
    /// A line instead of a row that cannot be measured here.
    void addSkipped(const std::string &what, const std::string &why);

private:
    static void print(const std::string &what, const std::string &against, const std::string &figures, bool pass);
};
