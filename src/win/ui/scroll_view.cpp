#include "win/ui/scroll_view.h"

#include <algorithm>

#include "win/ui/window_owner.h"

namespace tos::win::ui {

namespace {

constexpr const char* kViewClass = "TolvarineScrollView";
constexpr int kLinePixels = 20;

void RegisterViewClass(WNDPROC proc)
{
    static const bool registered = [proc] {
        WNDCLASSEXA wc{};
        wc.cbSize = sizeof wc;
        wc.lpfnWndProc = proc;
        wc.hInstance = GetModuleHandleA(nullptr);
        wc.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        wc.lpszClassName = kViewClass;
        return RegisterClassExA(&wc) != 0;
    }();
    (void)registered;
}

} // namespace

ScrollView::ScrollView(HWND parent)
{
    RegisterViewClass(&ScrollView::Proc);
    // The bar stays, disabled while all is in sight, so the content's width does
    // not change with its height.
    hwnd_ = CreateWindowExA(WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT, kViewClass, "",
                            WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_CLIPCHILDREN, 0, 0, 0, 0,
                            parent, nullptr, GetModuleHandleA(nullptr), this);
    Fit();
}

ScrollView::~ScrollView()
{
    if (IsWindow(hwnd_)) {
        SetWindowLongPtrA(hwnd_, GWLP_USERDATA, 0);
        DestroyWindow(hwnd_);
    }
}

void ScrollView::SetContent(HWND content, int heightPixels)
{
    content_ = content;
    height_ = heightPixels;
    top_ = 0;
    Fit();
}

int ScrollView::ClientHeight() const
{
    RECT client{};
    GetClientRect(hwnd_, &client);
    return client.bottom;
}

void ScrollView::Fit()
{
    RECT client{};
    GetClientRect(hwnd_, &client);
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_RANGE | SIF_PAGE | SIF_DISABLENOSCROLL;
    bar.nMax = std::max(height_ - 1, 0);
    bar.nPage = static_cast<UINT>(client.bottom);
    SetScrollInfo(hwnd_, SB_VERT, &bar, TRUE);
    if (content_)
        SetWindowPos(content_, nullptr, 0, -top_, client.right, height_,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    ScrollTo(top_);
}

void ScrollView::ScrollTo(int top)
{
    top = std::clamp(top, 0, std::max(height_ - ClientHeight(), 0));
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_POS | SIF_DISABLENOSCROLL;
    bar.nPos = top;
    SetScrollInfo(hwnd_, SB_VERT, &bar, TRUE);
    if (top == top_)
        return;
    top_ = top;
    if (content_)
        SetWindowPos(content_, nullptr, 0, -top_, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ScrollView::Reveal(HWND window)
{
    if (!content_ || !IsChild(content_, window))
        return;
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, hwnd_, reinterpret_cast<POINT*>(&place), 2);
    const int height = ClientHeight();
    if (place.top < 0)
        ScrollTo(top_ + place.top);
    else if (place.bottom > height)
        ScrollTo(top_ + std::min<int>(place.bottom - height, place.top));
}

void ScrollView::Scroll(int code)
{
    const int page = std::max(ClientHeight() - kLinePixels, kLinePixels);
    switch (code) {
    case SB_LINEUP:
        ScrollTo(top_ - kLinePixels);
        break;
    case SB_LINEDOWN:
        ScrollTo(top_ + kLinePixels);
        break;
    case SB_PAGEUP:
        ScrollTo(top_ - page);
        break;
    case SB_PAGEDOWN:
        ScrollTo(top_ + page);
        break;
    case SB_TOP:
        ScrollTo(0);
        break;
    case SB_BOTTOM:
        ScrollTo(height_);
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: {
        SCROLLINFO bar{};
        bar.cbSize = sizeof bar;
        bar.fMask = SIF_TRACKPOS;
        GetScrollInfo(hwnd_, SB_VERT, &bar);
        ScrollTo(bar.nTrackPos);
        break;
    }
    default:
        break;
    }
}

LRESULT CALLBACK ScrollView::Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* self = AttachedOwner(hwnd, message, lParam, &ScrollView::hwnd_);
    return self ? self->Handle(message, wParam, lParam)
                : DefWindowProcA(hwnd, message, wParam, lParam);
}

LRESULT ScrollView::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        Fit();
        return 0;
    case WM_VSCROLL:
        Scroll(LOWORD(wParam));
        return 0;
    case WM_MOUSEWHEEL: {
        // The controls inside pass the wheel up to here.
        UINT lines = 3;
        SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
        wheel_ += GET_WHEEL_DELTA_WPARAM(wParam);
        const int steps = wheel_ / WHEEL_DELTA;
        wheel_ -= steps * WHEEL_DELTA;
        ScrollTo(top_ - steps * static_cast<int>(lines) * kLinePixels);
        return 0;
    }
    case WM_SETFOCUS:
        // Focus given to the view itself goes on to the first control inside.
        if (content_)
            if (HWND first = GetNextDlgTabItem(content_, nullptr, FALSE))
                SetFocus(first);
        return 0;
    default:
        break;
    }
    return DefWindowProcA(hwnd_, message, wParam, lParam);
}

} // namespace tos::win::ui
