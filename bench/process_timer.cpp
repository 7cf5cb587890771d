#include "process_timer.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

extern char** environ;

namespace tos::bench {

ProcessRun RunProcess(const std::vector<std::string>& args)
{
    std::vector<char*> argv;
    for (const std::string& a : args)
        argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ) != 0) {
        std::fprintf(stderr, "cannot start %s\n", argv[0]);
        std::exit(2);
    }
    int status = 0;
    struct rusage usage {};
    wait4(pid, &status, 0, &usage);
    posix_spawn_file_actions_destroy(&actions);
    const double ms =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    return {ms, static_cast<double>(usage.ru_maxrss) / 1024.0};
}

namespace {

ProcessRun Median(std::vector<ProcessRun> runs)
{
    std::vector<double> times, peaks;
    for (const ProcessRun& r : runs) {
        times.push_back(r.ms);
        peaks.push_back(r.peakMiB);
    }
    std::sort(times.begin(), times.end());
    std::sort(peaks.begin(), peaks.end());
    return {times[times.size() / 2], peaks[peaks.size() / 2]};
}

} // namespace

ProcessRun MedianRun(const std::vector<std::string>& args, int runs)
{
    std::vector<ProcessRun> all;
    for (int i = 0; i < runs; ++i)
        all.push_back(RunProcess(args));
    return Median(all);
}

std::pair<ProcessRun, ProcessRun> MedianRuns(const std::vector<std::string>& first,
                                             const std::vector<std::string>& second, int runs)
{
    std::vector<ProcessRun> a, b;
    for (int i = 0; i < runs; ++i) {
        a.push_back(RunProcess(first));
        b.push_back(RunProcess(second));
    }
    return {Median(a), Median(b)};
}

std::string FloorProgram()
{
    const char* path = std::getenv("TOS_FLOOR_PROGRAM");
    return path == nullptr ? std::string() : std::string(path);
}

} // namespace tos::bench
