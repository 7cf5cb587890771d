#include <gtest/gtest.h>

#include "win/platform/win32.h"

#include <dlgs.h>

#include <functional>
#include <memory>

#include "common/scratch.h"
#include "win/ui/control_mirror.h"
#include "window_driver.h"

namespace tos::test {
namespace {

// Asks again until found or thirty seconds have gone by: a first start of the
// system's dialog in a new Wine prefix is slow.
HWND WaitFor(const std::function<HWND()>& find)
{
    for (int i = 0; i < 600; ++i) {
        if (HWND found = find())
            return found;
        Sleep(50);
    }
    return nullptr;
}

// The visible window of that title of one process; another instance left
// running must not answer.
HWND WindowOf(DWORD processId, const char* title)
{
    for (HWND at = FindWindowA(nullptr, title); at;
         at = FindWindowExA(nullptr, at, nullptr, title)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(at, &owner);
        if (owner == processId && IsWindowVisible(at))
            return at;
    }
    return nullptr;
}

HWND Control(HWND form, const std::string& name)
{
    struct Search {
        const std::string& name;
        HWND found = nullptr;
    } search{name};
    EnumChildWindows(
        form,
        [](HWND child, LPARAM data) {
            auto* s = reinterpret_cast<Search*>(data);
            if (win::ui::ControlName(child) == s->name)
                s->found = child;
            return s->found ? FALSE : TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// A message to another program's window, given up on if a box there blocks it.
LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    DWORD_PTR result = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_ABORTIFHUNG, 20000, &result);
    return static_cast<LRESULT>(result);
}

// The user answers the project dialog of the system's common dialog.
void ChooseInOpenDialog(DWORD processId, const char* title, const std::string& path)
{
    HWND dialog = WaitFor([&] { return WindowOf(processId, title); });
    ASSERT_NE(dialog, nullptr) << title;
    HWND name = GetDlgItem(dialog, cmb13);
    if (!name)
        name = GetDlgItem(dialog, edt1);
    ASSERT_NE(name, nullptr);
    Send(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
}

// The program as a user starts it, with the system's own dialogs and boxes,
// driven from outside through its windows.
TEST(ProgramTest, LoadsTheExampleProjectAndWritesTheScriptOfAnObject)
{
    ScratchDir scratch;
    CopyExampleProject(scratch);
    std::string program = BuildFile(TOS_PROGRAM);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(CreateProcessA(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &startup, &process));
    // A program left open by a failed step must not outlive the test.
    const std::unique_ptr<PROCESS_INFORMATION, void (*)(PROCESS_INFORMATION*)> running(
        &process, [](PROCESS_INFORMATION* p) {
            if (WaitForSingleObject(p->hProcess, 0) != WAIT_OBJECT_0)
                TerminateProcess(p->hProcess, 1);
            CloseHandle(p->hThread);
            CloseHandle(p->hProcess);
        });
    HWND form = WaitFor([&] { return WindowOf(process.dwProcessId, "Tolvarine Object Scripter"); });
    ASSERT_NE(form, nullptr);

    PostMessageA(Control(form, "btnBrowseProjectFile"), BM_CLICK, 0, 0);
    ChooseInOpenDialog(process.dwProcessId, "Open Tolvarine Project File (PRJ)",
                       scratch.File("Valley.prj"));
    EXPECT_NE(WaitFor([&] {
                  HWND process = Control(form, "btnProcess");
                  return IsWindowEnabled(process) ? process : nullptr;
              }),
              nullptr);

    Send(Control(form, "txtMaxFile"), WM_SETTEXT, 0,
         reinterpret_cast<LPARAM>("C:\\Models\\Oak.max"));
    Send(Control(form, "chkUseTolvarineName"), BM_CLICK, 0, 0);
    HWND combo = Control(form, "comboSelectObject");
    const LRESULT tree =
        Send(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>("Tree"));
    ASSERT_GE(tree, 0);
    Send(combo, CB_SETCURSEL, static_cast<WPARAM>(tree), 0);
    Send(form, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE),
         reinterpret_cast<LPARAM>(combo));
    Send(Control(form, "btnProcess"), BM_CLICK, 0, 0);

    const std::string script = ReadBytes(scratch.File("Valley_Main_Tree.ms"));
    EXPECT_EQ(script.rfind("-- Tolvarine Object Scripter", 0), 0u) << script.substr(0, 200);
    EXPECT_NE(script.find("copy $Tree"), std::string::npos);

    // Process All stands modal over the main window, and its boxes over itself, so
    // closing a box leaves the main window disabled beneath it.
    PostMessageA(Control(form, "btnProcessAll"), BM_CLICK, 0, 0);
    HWND batch = WaitFor([&] { return WindowOf(process.dwProcessId, "Process All"); });
    ASSERT_NE(batch, nullptr);
    EXPECT_FALSE(IsWindowEnabled(form));
    Send(Control(batch, "tblRows"), WM_KEYDOWN, VK_SPACE, 0); // Process of the first line
    PostMessageA(batch, WM_CLOSE, 0, 0);
    HWND box = WaitFor([&] { return WindowOf(process.dwProcessId, "TolvarineObjectScripter"); });
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(GetWindow(box, GW_OWNER), batch);
    // The box asks whether to save the changed table; No lets them go and closes.
    PostMessageA(box, WM_COMMAND, MAKEWPARAM(IDNO, BN_CLICKED), 0);
    EXPECT_NE(
        WaitFor([&] { return IsWindowEnabled(form) && !IsWindowVisible(batch) ? form : nullptr; }),
        nullptr);

    // The close box ends the program.
    PostMessageA(form, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 10000), WAIT_OBJECT_0);
    DWORD status = 1;
    GetExitCodeProcess(process.hProcess, &status);
    EXPECT_EQ(status, 0u);
}

} // namespace
} // namespace tos::test
