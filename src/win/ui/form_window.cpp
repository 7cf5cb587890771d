#include "win/ui/form_window.h"

#include <commctrl.h>

#include <algorithm>

#include "support/platform.h"
#include "win/ui/window_owner.h"

namespace tos::win::ui {

namespace {

constexpr const char* kWindowClass = "TolvarineObjectScripterForm";

void RegisterFormClass(WNDPROC proc)
{
    static const bool registered = [proc] {
        WNDCLASSEXA wc{};
        wc.cbSize = sizeof wc;
        wc.lpfnWndProc = proc;
        wc.hInstance = GetModuleHandleA(nullptr);
        wc.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        wc.lpszClassName = kWindowClass;
        wc.hIcon = LoadIconA(wc.hInstance, MAKEINTRESOURCEA(1));
        return RegisterClassExA(&wc) != 0;
    }();
    (void)registered;
}

bool IsChildOf(HWND parent, HWND window)
{
    return window && (window == parent || IsChild(parent, window));
}

} // namespace

FormWindow::FormWindow(const std::string& caption, DWORD style, DWORD exStyle, HWND owner,
                       int widthTwips, int heightTwips)
    : fonts_(scale_), layout_(scale_, widthTwips, heightTwips), style_(style), exStyle_(exStyle)
{
    RegisterFormClass(&FormWindow::Proc);
    RECT outer{0, 0, scale_.Pixels(widthTwips), scale_.Pixels(heightTwips)};
    AdjustWindowRectEx(&outer, style, FALSE, exStyle);
    hwnd_ = CheckedWindow(CreateWindowExA(exStyle, kWindowClass, caption.c_str(), style,
                                          CW_USEDEFAULT, CW_USEDEFAULT, outer.right - outer.left,
                                          outer.bottom - outer.top, owner, nullptr,
                                          GetModuleHandleA(nullptr), this),
                          "the window " + caption);
    tips_ = CheckedWindow(CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                                          WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                                          CW_USEDEFAULT, CW_USEDEFAULT, hwnd_, nullptr,
                                          GetModuleHandleA(nullptr), nullptr),
                          "the tooltips of " + caption);
}

FormWindow::~FormWindow()
{
    if (IsWindow(hwnd_)) {
        SetWindowLongPtrA(hwnd_, GWLP_USERDATA, 0);
        // Focus leaves the form before it goes, so no control reports a loss of
        // focus to the model while its window dies.
        if (IsChild(hwnd_, GetFocus()))
            SetFocus(nullptr);
        DestroyWindow(hwnd_);
    }
    // The tips belong to the top-level window; a child form's go with it.
    if (IsWindow(tips_))
        DestroyWindow(tips_);
}

HWND FormWindow::Find(std::string_view name) const
{
    for (const auto& mirror : mirrors_)
        if (mirror->Name() == name)
            return mirror->Handle();
    return nullptr;
}

void FormWindow::Register(ControlMirror* mirror, HWND window, int id)
{
    byWindow_[window] = mirror;
    byId_[id] = mirror;
}

void FormWindow::SetTip(HWND tool, const std::string& text)
{
    TTTOOLINFOA info{};
    info.cbSize = TTTOOLINFOA_V2_SIZE;
    info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    info.hwnd = hwnd_;
    info.uId = reinterpret_cast<UINT_PTR>(tool);
    info.lpszText = const_cast<char*>(text.c_str());
    const bool known = tipped_.count(tool) > 0;
    if (text.empty()) {
        if (known)
            SendMessageA(tips_, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&info));
        tipped_.erase(tool);
    } else if (known) {
        SendMessageA(tips_, TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&info));
    } else {
        SendMessageA(tips_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&info));
        tipped_.insert(tool);
    }
}

void FormWindow::SyncLater(ControlMirror* mirror)
{
    if (std::find(pending_.begin(), pending_.end(), mirror) == pending_.end())
        pending_.push_back(mirror);
    if (!syncPosted_)
        syncPosted_ = PostMessageA(hwnd_, kSyncMessage, 0, 0) != 0;
}

void FormWindow::FlushSyncs()
{
    syncPosted_ = false;
    // A sync may ask for more; those run in this turn too.
    while (!pending_.empty()) {
        std::vector<ControlMirror*> due;
        due.swap(pending_);
        for (ControlMirror* mirror : due)
            mirror->OnSync();
    }
}

void FormWindow::FollowForm(ViewNotifier& notifier, std::function<void()> paint)
{
    std::weak_ptr<bool> alive = alive_;
    notifier.Subscribe([alive, paint = std::move(paint)] {
        if (!alive.expired())
            paint();
    });
}

void FormWindow::Place(HWND window, TwipRect place, unsigned anchor)
{
    layout_.Add(window, place, anchor);
}

void FormWindow::FinishLayout()
{
    const SIZE client = layout_.DesignedClient();
    layout_.Apply(client.cx, client.cy);
}

void FormWindow::SyncPlacement(int leftTwips, int topTwips)
{
    if (placed_ != std::pair(leftTwips, topTwips)) {
        placed_ = std::pair(leftTwips, topTwips);
        SetWindowPos(hwnd_, nullptr, scale_.Pixels(leftTwips), scale_.Pixels(topTwips), 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ShowPointer();
}

void FormWindow::ShowPointer()
{
    const int pointer = Pointer();
    if (pointer == shownPointer_)
        return;
    shownPointer_ = pointer;
    // No WM_SETCURSOR comes until the mouse moves, so a pointer over this form
    // changes at once; one over a message box or another window is left alone.
    POINT at;
    if (!GetCursorPos(&at))
        return;
    HWND under = WindowFromPoint(at);
    if (under && GetAncestor(under, GA_ROOT) == hwnd_)
        SetCursor(LoadCursorA(nullptr, pointer == kPointerHourglass ? IDC_WAIT : IDC_ARROW));
}

void FormWindow::FocusFirst()
{
    HWND first = GetNextDlgTabItem(hwnd_, nullptr, FALSE);
    if (first)
        SetFocus(first);
}

void FormWindow::RunModal(const std::function<bool()>& shown)
{
    if (modal_)
        return;
    modal_ = true;
    HWND owner = GetWindow(hwnd_, GW_OWNER);
    if (owner)
        EnableWindow(owner, FALSE);
    ShowWindow(hwnd_, SW_SHOW);
    FocusFirst();
    HWND focus = GetFocus();
    MSG message;
    while (shown()) {
        const BOOL got = GetMessageA(&message, nullptr, 0, 0);
        if (got <= 0) {
            // The program ends: the main loop must see the quit as well.
            if (got == 0)
                PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!IsDialogMessageA(hwnd_, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        if (GetFocus() != focus) {
            focus = GetFocus();
            FocusMoved(focus);
        }
    }
    // The owner comes back first, so that activation returns to it and not to
    // another program's window.
    if (owner)
        EnableWindow(owner, TRUE);
    ShowWindow(hwnd_, SW_HIDE);
    if (owner)
        SetActiveWindow(owner);
    modal_ = false;
}

ControlMirror* FormWindow::MirrorOf(HWND window) const
{
    const auto it = byWindow_.find(window);
    return it == byWindow_.end() ? nullptr : it->second;
}

LRESULT CALLBACK FormWindow::Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* self = AttachedOwner(hwnd, message, lParam, &FormWindow::hwnd_);
    return self ? self->Handle(message, wParam, lParam)
                : DefWindowProcA(hwnd, message, wParam, lParam);
}

LRESULT FormWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        if (lParam == 0 && LOWORD(wParam) == IDCANCEL)
            OnCancel();
        else if (ControlMirror* m = MirrorOf(reinterpret_cast<HWND>(lParam)))
            m->OnCommand(HIWORD(wParam));
        return 0;
    case WM_NOTIFY: {
        auto* header = reinterpret_cast<NMHDR*>(lParam);
        LRESULT result = 0;
        if (ControlMirror* m = MirrorOf(header->hwndFrom); m && m->OnNotify(header, result))
            return result;
        break;
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
        if (ControlMirror* m = MirrorOf(reinterpret_cast<HWND>(lParam)))
            if (HBRUSH brush = m->OnColor(reinterpret_cast<HDC>(wParam)))
                return reinterpret_cast<LRESULT>(brush);
        break;
    case WM_MEASUREITEM: {
        auto* item = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
        if (const auto it = byId_.find(static_cast<int>(item->CtlID)); it != byId_.end()) {
            it->second->OnMeasure(item);
            return TRUE;
        }
        break;
    }
    case WM_DRAWITEM: {
        auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (ControlMirror* m = MirrorOf(item->hwndItem)) {
            m->OnDraw(item);
            return TRUE;
        }
        break;
    }
    case WM_SETCURSOR:
        if (Pointer() == kPointerHourglass && LOWORD(lParam) == HTCLIENT) {
            SetCursor(LoadCursorA(nullptr, IDC_WAIT));
            return TRUE;
        }
        break;
    case WM_GETMINMAXINFO: {
        // Larger than designed, never smaller.
        const SIZE client = layout_.DesignedClient();
        RECT outer{0, 0, client.cx, client.cy};
        AdjustWindowRectEx(&outer, style_, FALSE, exStyle_);
        auto* info = reinterpret_cast<MINMAXINFO*>(lParam);
        info->ptMinTrackSize = {outer.right - outer.left, outer.bottom - outer.top};
        return 0;
    }
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED) {
            layout_.Apply(LOWORD(lParam), HIWORD(lParam));
            // A frame paints its lines and not its inside, so what it covered is
            // painted anew beneath it.
            RedrawWindow(hwnd_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        }
        return 0;
    case WM_ACTIVATE:
        // Like a dialog: the control that had the focus gets it back.
        if (LOWORD(wParam) == WA_INACTIVE) {
            HWND focus = GetFocus();
            if (focus && IsChild(hwnd_, focus))
                savedFocus_ = focus;
        } else if (!IsChildOf(hwnd_, GetFocus()) || GetFocus() == hwnd_) {
            if (savedFocus_ && IsWindow(savedFocus_))
                SetFocus(savedFocus_);
            else
                FocusFirst();
        }
        return 0;
    case WM_CLOSE:
        OnClose();
        return 0;
    case kSyncMessage:
        FlushSyncs();
        return 0;
    default:
        break;
    }
    return DefWindowProcA(hwnd_, message, wParam, lParam);
}

} // namespace tos::win::ui
