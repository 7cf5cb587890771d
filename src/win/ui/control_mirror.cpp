#include "win/ui/control_mirror.h"

#include <vector>

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

ControlMirror::~ControlMirror()
{
    if (nameAtom_ != 0)
        GlobalDeleteAtom(nameAtom_);
}

void ControlMirror::Create(const char* windowClass, DWORD style, DWORD exStyle)
{
    const int id = form_.NextControlId();
    hwnd_ = CreateWindowExA(exStyle, windowClass, "", WS_CHILD | style, 0, 0, 0, 0, form_.Handle(),
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            GetModuleHandleA(nullptr), nullptr);
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
