#include "win/ui/control_mirror.h"

#include <vector>

#include "support/failure.h"

#include "win/ui/form_window.h"

namespace tos::win::ui {

std::string ControlName(HWND window)
{
    const auto atom =
        static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropA(window, kControlNameProperty)));
    char name[256] = "";
    if (atom != 0)
        GlobalGetAtomNameA(atom, name, sizeof name);
    return name;
}

HWND CheckedWindow(HWND made, const std::string& what)
{
    if (made)
        return made;
    const DWORD code = GetLastError();
    const std::string text = "Windows could not make " + what + " (system error " +
                             std::to_string(code) +
                             "). Close other programs to free their windows and start again.";
    ::MessageBoxA(nullptr, text.c_str(), "Tolvarine Object Scripter", MB_OK | MB_ICONERROR);
    Fail(err::OutOfMemory);
}

ControlMirror::~ControlMirror()
{
    if (nameAtom_ != 0)
        GlobalDeleteAtom(nameAtom_);
}

void ControlMirror::Create(const char* windowClass, DWORD style, DWORD exStyle)
{
    const int id = form_.NextControlId();
    hwnd_ = CheckedWindow(CreateWindowExA(exStyle, windowClass, "", WS_CHILD | style, 0, 0, 0, 0,
                                          form_.Handle(),
                                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                          GetModuleHandleA(nullptr), nullptr),
                          "the control " + Name());
    form_.Register(this, hwnd_, id);
    nameAtom_ = GlobalAddAtomA(Name().c_str());
    SetPropA(hwnd_, kControlNameProperty,
             reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(nameAtom_)));
    Created();
    SendMessageA(hwnd_, WM_SETFONT, reinterpret_cast<WPARAM>(form_.Fonts().Get(control_.GetFont())),
                 FALSE);
    Follow(control_.view, [this] { Changed(); });
    Paint();
}

void ControlMirror::Follow(ViewNotifier& notifier, std::function<void()> paint)
{
    // The model outlives the windows in tests; its notifiers must not reach a dead mirror.
    std::weak_ptr<bool> alive = alive_;
    notifier.Subscribe([alive, paint = std::move(paint)] {
        if (!alive.expired())
            paint();
    });
}

void ControlMirror::Paint()
{
    EnableWindow(hwnd_, control_.Enabled());
    ShowWindow(hwnd_, control_.Visible() ? SW_SHOWNA : SW_HIDE);
    if (control_.ToolTip() != shownTip_) {
        shownTip_ = control_.ToolTip();
        form_.SetTip(hwnd_, shownTip_);
    }
    painting_ = true;
    PaintOwn();
    painting_ = false;
}

void ControlMirror::ShowText(HWND window, const std::string& text)
{
    const int length = GetWindowTextLengthA(window);
    std::vector<char> shown(static_cast<std::size_t>(length) + 1);
    GetWindowTextA(window, shown.data(), length + 1);
    if (std::string(shown.data(), static_cast<std::size_t>(length)) != text)
        SetWindowTextA(window, text.c_str());
}

} // namespace tos::win::ui
