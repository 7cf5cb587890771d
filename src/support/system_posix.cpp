#include <ctime>
#include <filesystem>
#include <system_error>

#include "support/system.h"

namespace tos {

const char kPathSeparator = '/';

std::string FullPath(const std::string& path)
{
    if (path.empty() || path.front() == '/')
        return path;
    std::error_code ec;
    return std::filesystem::current_path(ec).string() + kPathSeparator + path;
}

std::string ExecutableFolder()
{
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (ec)
        return std::filesystem::current_path(ec).string();
    return exe.parent_path().string();
}

// The coarse clock is read from memory, while the precise one may cost as much as
// a whole profile lookup.
std::int64_t CoarseNowNs()
{
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &ts);
    return static_cast<std::int64_t>(ts.tv_sec) * 1'000'000'000 + ts.tv_nsec;
}

void UseBinaryStandardStreams() {}

} // namespace tos
