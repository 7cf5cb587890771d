#include "win/platform/help_launch.h"

#include "win/platform/win32.h"

namespace tos::win {

bool LaunchDocument(const std::string& file)
{
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteA(nullptr, "open", file.c_str(), "", "", SW_SHOWNORMAL));
    return result >= 33;
}

} // namespace tos::win
