#include "fuzz_support.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tos::fuzz {

void Require(bool holds, std::string_view what)
{
    Require(holds, what, {});
}

void Require(bool holds, std::string_view what, std::string_view detail)
{
    if (holds)
        return;
    std::fprintf(stderr, "PROPERTY BROKEN: %.*s\n", static_cast<int>(what.size()), what.data());
    if (!detail.empty())
        std::fprintf(stderr, "  %.*s\n", static_cast<int>(detail.size()), detail.data());
    std::abort();
}

namespace {

void RemoveScratch()
{
    std::error_code ec;
    std::filesystem::remove_all(ScratchFolder(), ec);
}

} // namespace

const std::string& ScratchFolder()
{
    static const std::string folder = [] {
        // Memory-backed when the system has it: every run writes files.
        const char* base = std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : nullptr;
        std::string pattern =
            (base ? std::filesystem::path(base) : std::filesystem::temp_directory_path()) /
            "tos-fuzz-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) {
            std::perror("mkdtemp");
            std::abort();
        }
        return pattern;
    }();
    static const bool cleanup = (std::atexit(RemoveScratch), true);
    (void)cleanup;
    return folder;
}

std::string WriteScratchFile(const std::string& name, std::string_view bytes)
{
    const std::string path = ScratchFolder() + "/" + name;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    Require(out.good(), "the scratch file could be written", path);
    return path;
}

std::string ReadFileBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

std::uint8_t TailReader::Byte()
{
    if (bytes_.empty())
        return 0;
    const auto b = static_cast<std::uint8_t>(bytes_.back());
    bytes_.remove_suffix(1);
    return b;
}

std::string_view TailReader::Bytes(std::size_t count)
{
    count = std::min(count, bytes_.size());
    const std::string_view taken = bytes_.substr(bytes_.size() - count);
    bytes_.remove_suffix(count);
    return taken;
}

} // namespace tos::fuzz
