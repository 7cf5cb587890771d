#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "common/scratch.h"
#include "win/platform/help_launch.h"
#include "win/platform/win32.h"
#include "win/platform/win_platform.h"

namespace tos::win {
namespace {

// A plain top-level window standing in for a form; it answers WM_SETCURSOR as the
// forms do, from PointerOf.
WinPlatform* cursorPlatform = nullptr;

LRESULT CALLBACK FormProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_SETCURSOR && LOWORD(lParam) == HTCLIENT && cursorPlatform != nullptr) {
        const bool wait = cursorPlatform->PointerOf(FormId::Main) == kPointerHourglass;
        SetCursor(LoadCursorA(nullptr, wait ? IDC_WAIT : IDC_ARROW));
        return TRUE;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND MakeForm(const char* caption)
{
    static const ATOM kClass = [] {
        WNDCLASSA c{};
        c.lpfnWndProc = FormProc;
        c.hInstance = GetModuleHandleA(nullptr);
        c.lpszClassName = "TosTestForm";
        return RegisterClassA(&c);
    }();
    return CreateWindowExA(0, MAKEINTATOM(kClass), caption, WS_OVERLAPPEDWINDOW, 100, 100, 400, 300,
                           nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
}

// Shows the box; a second thread finds it, notes its owner and title, and presses OK.
struct SeenBox {
    HWND owner = nullptr;
    std::string title;
};

SeenBox ShowAndAnswer(WinPlatform& platform, const MessageBox& box)
{
    SeenBox seen;
    std::atomic<bool> shown{false};
    std::thread user([&] {
        for (int i = 0; i < 500 && !shown; ++i) {
            if (HWND found = FindWindowA("#32770", box.title.c_str())) {
                seen.owner = GetWindow(found, GW_OWNER);
                char title[256] = {};
                GetWindowTextA(found, title, sizeof title);
                seen.title = title;
                PostMessageA(found, WM_COMMAND, IDOK, 0);
                return;
            }
            Sleep(20);
        }
    });
    platform.ShowMessage(box);
    shown = true;
    user.join();
    return seen;
}

TEST(WinPlatform, MessageBoxesStandOverTheFormInFront)
{
    const HWND main = MakeForm("Main form");
    const HWND compiler = MakeForm("Combiner form");
    WinPlatform platform;
    platform.windowOf = [&](FormId form) { return form == FormId::Main ? main : compiler; };
    ShowWindow(main, SW_SHOW);

    MessageBox box{"No SCN file found!!"};
    box.title = "Box test " + std::to_string(GetCurrentProcessId());
    EXPECT_EQ(ShowAndAnswer(platform, box).owner, main);
    ShowWindow(compiler, SW_SHOW);
    const SeenBox overCombiner = ShowAndAnswer(platform, box);
    EXPECT_EQ(overCombiner.owner, compiler);
    EXPECT_EQ(overCombiner.title, box.title);
    DestroyWindow(compiler);
    DestroyWindow(main);
}

TEST(WinPlatform, TheHourglassShowsAtOnceOverTheFormThatWorks)
{
    const HWND main = MakeForm("Main form");
    WinPlatform platform;
    cursorPlatform = &platform;
    platform.windowOf = [&](FormId form) { return form == FormId::Main ? main : nullptr; };
    ShowWindow(main, SW_SHOW);
    SetForegroundWindow(main);
    RECT r{};
    GetWindowRect(main, &r);
    SetCursorPos((r.left + r.right) / 2, (r.top + r.bottom) / 2);

    platform.SetMousePointer(FormId::Main, kPointerHourglass);
    EXPECT_EQ(platform.PointerOf(FormId::Main), kPointerHourglass);
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_WAIT));
    platform.SetMousePointer(FormId::Main, kPointerDefault);
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_ARROW));
    EXPECT_EQ(platform.PointerOf(FormId::Compiler), kPointerDefault);
    cursorPlatform = nullptr;
    DestroyWindow(main);
}

TEST(WinPlatform, TwipsAndPixelsConvertBothWays)
{
    EXPECT_EQ(TwipsToPixels(PixelsToTwips(640)), 640);
}

TEST(WinPlatform, ProgramFolderIsTheFolderOfTheRunningExe)
{
    char exe[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, exe, MAX_PATH);
    const std::string folder = WinPlatform().ProgramFolder();
    EXPECT_EQ(folder + "\\test_win_platform.exe", exe);
}

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

} // namespace
} // namespace tos::win
