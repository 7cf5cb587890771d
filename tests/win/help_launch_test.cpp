#include <gtest/gtest.h>

#include <string>

#include "common/scratch.h"
#include "win/platform/help_launch.h"
#include "win/platform/win_platform.h"

namespace tos::win {
namespace {

TEST(LaunchDocument, FailureIsReportedAsFalse)
{
    test::ScratchDir dir;
    struct Row {
        const char* name;
        std::string file;
    };
    const Row rows[] = {
        {.name = "missing file", .file = dir.File("TOS_Help.html")},
        {.name = "missing folder", .file = dir.File("gone\\TOS_Help.html")},
        {.name = "no handler for the type", .file = dir.Write("help.tosnohandler", "x")},
    };
    for (const Row& row : rows)
        EXPECT_FALSE(LaunchDocument(row.file)) << row.name;
}

TEST(WinPlatform, PointerAndScreenAsTheWindowsReadThem)
{
    WinPlatform platform;
    platform.SetMousePointer(FormId::Compiler, kPointerHourglass);
    EXPECT_EQ(platform.PointerOf(FormId::Compiler), kPointerHourglass);
    EXPECT_EQ(platform.PointerOf(FormId::Main), kPointerDefault);
    platform.SetMousePointer(FormId::Compiler, kPointerDefault);
    EXPECT_EQ(platform.PointerOf(FormId::Compiler), kPointerDefault);

    const ScreenSize screen = platform.Screen();
    EXPECT_DOUBLE_EQ(screen.widthTwips, GetSystemMetrics(SM_CXSCREEN) * TwipsPerPixel());
    EXPECT_EQ(TwipsToPixels(PixelsToTwips(640)), 640);
}

TEST(WinPlatform, ProgramFolderIsTheFolderOfTheRunningExe)
{
    char exe[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, exe, MAX_PATH);
    const std::string folder = WinPlatform().ProgramFolder();
    EXPECT_EQ(folder + "\\test_win_platform.exe", exe);
}

} // namespace
} // namespace tos::win
