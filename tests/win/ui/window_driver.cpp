#include "window_driver.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <vector>

#include "batch/batch_events.h"
#include "shell/startup.h"

namespace tos::test {

Windows::Windows()
{
    static const bool controls = [] {
        INITCOMMONCONTROLSEX init{sizeof init, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES};
        return InitCommonControlsEx(&init) != FALSE;
    }();
    (void)controls;
    app.endProcess = [this] { ended = true; };
    ConnectBatchEvents(app);
    app.sceneMap.drawnInWindow = false;
    tos::Main(app);
    Pump();
}

void Pump()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

namespace {

std::deque<std::function<void()>> userSteps;

void CALLBACK NextStep(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    auto step = std::move(userSteps.front());
    userSteps.pop_front();
    if (!userSteps.empty())
        SetTimer(nullptr, 0, 0, &NextStep);
    step();
}

} // namespace

void ClickAndDo(HWND button, std::deque<std::function<void()>> steps)
{
    userSteps = std::move(steps);
    SetTimer(nullptr, 0, 0, &NextStep);
    SendMessageA(button, BM_CLICK, 0, 0);
    EXPECT_TRUE(userSteps.empty());
    userSteps.clear();
}

std::string Text(HWND window)
{
    std::vector<char> text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1);
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::string ListRow(HWND list, int index, int column)
{
    std::vector<char> text(4096);
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
    return text.data();
}

int ListCount(HWND list)
{
    return static_cast<int>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0));
}

void PickRow(HWND combo, int index)
{
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageA(GetParent(combo), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

void Type(HWND window, const std::string& text)
{
    SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

std::string BuildFile(const std::string& hostPath)
{
    // Under Wine a host path is seen on drive Z:.
    std::string path = hostPath;
    if (!path.empty() && path.front() == '/')
        path = "Z:" + path;
    for (char& c : path)
        if (c == '/')
            c = '\\';
    return path;
}

} // namespace tos::test
