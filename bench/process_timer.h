#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tos::bench {

// A whole process, run with its output thrown away.
struct ProcessRun {
    double ms = 0;      // wall time
    double peakMiB = 0; // the largest resident set it had
};

ProcessRun RunProcess(const std::vector<std::string>& args);

// Medians of the wall times and of the peaks, each on its own.
ProcessRun MedianRun(const std::vector<std::string>& args, int runs = 9);

// Medians of two commands run in turn, so that a load on the machine falls on both alike.
std::pair<ProcessRun, ProcessRun> MedianRuns(const std::vector<std::string>& first,
                                             const std::vector<std::string>& second, int runs = 9);

// The floor program that run-benchmarks.sh builds, from TOS_FLOOR_PROGRAM; "" when unset.
std::string FloorProgram();

} // namespace tos::bench
