#include "common/scratch.h"

#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace tos::test {

ScratchDir::ScratchDir()
{
    std::random_device rd;
    for (int attempt = 0; attempt < 100; ++attempt) {
        auto candidate = std::filesystem::temp_directory_path() /
                         ("tos-test-" + std::to_string(rd()) + std::to_string(attempt));
        if (std::filesystem::create_directory(candidate)) {
            path_ = candidate;
            return;
        }
    }
    throw std::runtime_error("cannot make a scratch folder");
}

ScratchDir::~ScratchDir()
{
    std::error_code ec;
    // A test may have made files read-only; give the permission back first.
    for (auto& entry : std::filesystem::recursive_directory_iterator(path_, ec))
        std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, ec);
    std::filesystem::remove_all(path_, ec);
}

std::string ScratchDir::File(const std::string& name) const
{
    return (path_ / name).string();
}

std::string ScratchDir::Write(const std::string& name, const std::string& bytes) const
{
    const std::string full = File(name);
    std::filesystem::create_directories(std::filesystem::path(full).parent_path());
    std::ofstream out(full, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return full;
}

std::string ReadBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

std::string CopyExampleProject(const ScratchDir& dir)
{
    const std::string example = std::string(TOS_SOURCE_DIR) + "/examples/Valley/";
    dir.Write("Valley.scn", ReadBytes(example + "Valley.scn"));
    return dir.Write("Valley.prj", ReadBytes(example + "Valley.prj"));
}

} // namespace tos::test
