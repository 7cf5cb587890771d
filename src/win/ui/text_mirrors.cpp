#include "win/ui/text_mirrors.h"

#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "win/ui/form_window.h"

namespace tos::win::ui {

namespace {

bool SameForm(HWND a, HWND b)
{
    return a && b && GetAncestor(a, GA_ROOT) == GetAncestor(b, GA_ROOT);
}

std::string WindowText(HWND window)
{
    const int length = GetWindowTextLengthA(window);
    std::vector<char> text(static_cast<std::size_t>(length) + 1);
    const int got = GetWindowTextA(window, text.data(), length + 1);
    return std::string(text.data(), static_cast<std::size_t>(std::max(got, 0)));
}

} // namespace

void FocusRelay::Watch(HWND window)
{
    SetWindowSubclass(window, &FocusRelay::Proc, 1, reinterpret_cast<DWORD_PTR>(this));
}

void FocusRelay::Fire(Event* event) const
{
    if (event)
        event->Fire();
}

LRESULT CALLBACK FocusRelay::Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                  DWORD_PTR data)
{
    auto* self = reinterpret_cast<FocusRelay*>(data);
    if (message == WM_NCDESTROY)
        RemoveWindowSubclass(hwnd, &FocusRelay::Proc, 1);
    if (message == WM_MOUSEWHEEL && self->passWheel && GetParent(hwnd))
        return SendMessageA(GetParent(hwnd), message, wParam, lParam);
    const LRESULT result = DefSubclassProc(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_SETFOCUS: {
        HWND from = reinterpret_cast<HWND>(wParam);
        if (from && from == GetParent(hwnd))
            from = self->cameFrom;
        if (SameForm(hwnd, from))
            self->Fire(self->gotFocus_);
        break;
    }
    case WM_KILLFOCUS: {
        HWND to = reinterpret_cast<HWND>(wParam);
        // Focus that stays inside a combo box (its own edit field) is no change.
        if (SameForm(hwnd, to) && to != GetParent(hwnd))
            self->Fire(self->lostFocus_);
        break;
    }
    case WM_LBUTTONUP:
        self->Fire(self->click_);
        break;
    case WM_LBUTTONDBLCLK:
        self->Fire(self->dblClick_);
        break;
    default:
        break;
    }
    return result;
}

TextBoxMirror::TextBoxMirror(FormWindow& form, TextBox& box)
    : ControlMirror(form, box), box_(box),
      relay_(&box.GotFocus, &box.LostFocus, &box.Click, &box.DblClick)
{
}

void TextBoxMirror::Make()
{
    Create("EDIT", WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE);
}

void TextBoxMirror::Created()
{
    relay_.passWheel = true;
    relay_.Watch(hwnd_);
}

void TextBoxMirror::OnCommand(int code)
{
    if (code == EN_CHANGE && !painting_)
        box_.SetText(WindowText(hwnd_));
}

HBRUSH TextBoxMirror::OnColor(HDC dc)
{
    if (!box_.Enabled())
        return nullptr;
    const int colour = box_.Back() == BackColor::ButtonFace ? COLOR_BTNFACE : COLOR_WINDOW;
    SetBkColor(dc, GetSysColor(colour));
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    return GetSysColorBrush(colour);
}

void TextBoxMirror::PaintOwn()
{
    ShowText(hwnd_, box_.Text());
    SendMessageA(hwnd_, EM_SETREADONLY, box_.Locked() ? TRUE : FALSE, 0);
    InvalidateRect(hwnd_, nullptr, TRUE);
}

ComboBoxMirror::ComboBoxMirror(FormWindow& form, ComboBox& box)
    : ControlMirror(form, box), box_(box), relay_(&box.GotFocus, &box.LostFocus, nullptr, nullptr)
{
}

void ComboBoxMirror::Make()
{
    Create("COMBOBOX", WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL);
}

void ComboBoxMirror::Created()
{
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (GetComboBoxInfo(hwnd_, &parts)) {
        relay_.Watch(parts.hwndItem);
        SetWindowSubclass(parts.hwndList, &ComboBoxMirror::ListProc, 1,
                          reinterpret_cast<DWORD_PTR>(this));
    }
    SetWindowSubclass(hwnd_, &ComboBoxMirror::ComboProc, 1, reinterpret_cast<DWORD_PTR>(this));
    Follow(box_.Items().view, [this] { form_.SyncLater(this); });
    form_.SyncLater(this);
}

LRESULT CALLBACK ComboBoxMirror::ComboProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR, DWORD_PTR data)
{
    auto* self = reinterpret_cast<ComboBoxMirror*>(data);
    if (message == WM_SETFOCUS)
        self->relay_.cameFrom = reinterpret_cast<HWND>(wParam);
    if (message == WM_NCDESTROY)
        RemoveWindowSubclass(hwnd, &ComboBoxMirror::ComboProc, 1);
    return DefSubclassProc(hwnd, message, wParam, lParam);
}

LRESULT CALLBACK ComboBoxMirror::ListProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR, DWORD_PTR data)
{
    auto* self = reinterpret_cast<ComboBoxMirror*>(data);
    const LRESULT result = DefSubclassProc(hwnd, message, wParam, lParam);
    // The dropped list scrolls by its bar or by the wheel.
    if (message == WM_VSCROLL || message == WM_MOUSEWHEEL)
        self->box_.Scroll.Fire();
    if (message == WM_NCDESTROY)
        RemoveWindowSubclass(hwnd, &ComboBoxMirror::ListProc, 1);
    return result;
}

void ComboBoxMirror::OnCommand(int code)
{
    if (painting_)
        return;
    switch (code) {
    case CBN_EDITCHANGE:
        box_.SetText(WindowText(hwnd_));
        break;
    case CBN_SELCHANGE: {
        const LRESULT index = SendMessageA(hwnd_, CB_GETCURSEL, 0, 0);
        if (index < 0)
            break;
        const LRESULT length = SendMessageA(hwnd_, CB_GETLBTEXTLEN, index, 0);
        std::vector<char> row(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1);
        SendMessageA(hwnd_, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(row.data()));
        box_.SetText(std::string(row.data(), row.size() - 1));
        box_.Click.Fire();
        break;
    }
    case CBN_DROPDOWN:
        box_.DropDown.Fire();
        break;
    default:
        break;
    }
}

void ComboBoxMirror::PaintOwn()
{
    ShowText(hwnd_, box_.Text());
}

void ComboBoxMirror::OnSync()
{
    painting_ = true;
    SendMessageA(hwnd_, WM_SETREDRAW, FALSE, 0);
    SendMessageA(hwnd_, CB_RESETCONTENT, 0, 0);
    const auto& rows = box_.Items().Rows();
    SendMessageA(hwnd_, CB_INITSTORAGE, rows.size(), 0);
    for (const std::string& row : rows)
        SendMessageA(hwnd_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
    SendMessageA(hwnd_, WM_SETREDRAW, TRUE, 0);
    // Emptying the rows emptied the edit field too.
    ShowText(hwnd_, box_.Text());
    painting_ = false;
    FitDropDown();
    InvalidateRect(hwnd_, nullptr, TRUE);
}

void ComboBoxMirror::FitDropDown()
{
    HDC dc = GetDC(hwnd_);
    HGDIOBJ before =
        SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(hwnd_, WM_GETFONT, 0, 0)));
    LONG widest = 0;
    for (const std::string& row : box_.Items().Rows()) {
        SIZE extent{};
        GetTextExtentPoint32A(dc, row.c_str(), static_cast<int>(row.size()), &extent);
        widest = std::max(widest, extent.cx);
    }
    SelectObject(dc, before);
    ReleaseDC(hwnd_, dc);
    // Room for the list's border, its scroll bar and a little air.
    const int frame = 2 * GetSystemMetrics(SM_CXEDGE) + GetSystemMetrics(SM_CXVSCROLL) + 8;
    SendMessageA(hwnd_, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest + frame), 0);
}

} // namespace tos::win::ui
