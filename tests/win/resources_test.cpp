#include <gtest/gtest.h>

#include "win/platform/win32.h"

#include <string>
#include <vector>

namespace tos::win {
namespace {

// What Explorer shows of a program: the text of its version information, and its icon.
std::string VersionText(const std::string& exe, const std::string& name)
{
    DWORD ignored = 0;
    std::vector<char> info(GetFileVersionInfoSizeA(exe.c_str(), &ignored));
    if (info.empty() ||
        !GetFileVersionInfoA(exe.c_str(), 0, static_cast<DWORD>(info.size()), info.data()))
        return "";
    char* text = nullptr;
    UINT length = 0;
    const std::string path = "\\StringFileInfo\\040904E4\\" + name;
    if (!VerQueryValueA(info.data(), path.c_str(), reinterpret_cast<void**>(&text), &length))
        return "";
    return std::string(text);
}

TEST(Resources, TosCliCarriesVersionAndIcon)
{
    const std::string exe = TOS_CLI_EXE;
    EXPECT_EQ(VersionText(exe, "ProductName"), "Tolvarine Object Scripter");
    EXPECT_EQ(VersionText(exe, "FileVersion"), TOS_VERSION);
    EXPECT_EQ(VersionText(exe, "OriginalFilename"), "tos-cli.exe");
    EXPECT_EQ(ExtractIconExA(exe.c_str(), -1, nullptr, nullptr, 0), 1u);
}

} // namespace
} // namespace tos::win
