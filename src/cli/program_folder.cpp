#include "cli/program_folder.h"

#include <filesystem>
#include <system_error>

namespace tos::cli {

std::string ProgramFolder()
{
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (ec)
        return std::filesystem::current_path(ec).string();
    return exe.parent_path().string();
}

} // namespace tos::cli
