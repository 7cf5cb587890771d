#include <windows.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>

#include "support/system.h"

namespace tos {

const char kPathSeparator = '\\';

std::string FullPath(const std::string& path)
{
    if (path.empty())
        return path;
    // The system also takes "/" and folds "." and "..", as a shell does.
    std::string full(MAX_PATH, '\0');
    for (;;) {
        const DWORD n =
            GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (n == 0)
            return path;
        if (n < full.size()) {
            full.resize(n);
            return full;
        }
        full.resize(n);
    }
}

std::string ExecutableFolder()
{
    std::string exe(MAX_PATH, '\0');
    for (;;) {
        const DWORD n = GetModuleFileNameA(nullptr, exe.data(), static_cast<DWORD>(exe.size()));
        if (n == 0)
            break;
        if (n < exe.size()) {
            exe.resize(n);
            const std::size_t last = exe.find_last_of('\\');
            return last == std::string::npos ? std::string() : exe.substr(0, last);
        }
        exe.resize(exe.size() * 2);
    }
    std::string current(GetCurrentDirectoryA(0, nullptr), '\0');
    current.resize(GetCurrentDirectoryA(static_cast<DWORD>(current.size()), current.data()));
    return current;
}

// The tick count is the system's coarse clock: 10 to 16 ms steps, read from memory.
std::int64_t CoarseNowNs()
{
    return static_cast<std::int64_t>(GetTickCount64()) * 1'000'000;
}

void UseBinaryStandardStreams()
{
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

} // namespace tos
