#include "win/ui/list_mirror.h"

#include <commctrl.h>

#include <algorithm>

#include "forms/screen_text.h"
#include "win/ui/form_window.h"

namespace tos::win::ui {

namespace {

constexpr int kTextMargin = 3;
// DT_EXPANDTABS stops every eight characters, as ShownColumns counts when measuring.
constexpr UINT kRowFormat = DT_SINGLELINE | DT_NOPREFIX | DT_EXPANDTABS | DT_VCENTER | DT_NOCLIP;

} // namespace

void ListMirror::Make()
{
    Create(WC_LISTVIEWA,
           WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED |
               LVS_NOCOLUMNHEADER | LVS_SINGLESEL | LVS_SHOWSELALWAYS,
           WS_EX_CLIENTEDGE);
}

void ListMirror::Created()
{
    LVCOLUMNA column{};
    column.mask = LVCF_WIDTH;
    column.cx = 1;
    SendMessageA(hwnd_, LVM_INSERTCOLUMNA, 0, reinterpret_cast<LPARAM>(&column));
    form_.SyncLater(this);
}

void ListMirror::Changed()
{
    // Noted at once, so a list cleared and refilled within one burst is seen as new.
    if (list_.Rows().empty())
        emptied_ = true;
    form_.SyncLater(this);
}

void ListMirror::PaintOwn()
{
    SendMessageA(hwnd_, LVM_SETBKCOLOR, 0, static_cast<LPARAM>(Back()));
}

COLORREF ListMirror::Back() const
{
    return GetSysColor(list_.Back() == BackColor::ButtonFace ? COLOR_BTNFACE : COLOR_WINDOW);
}

const std::string& ListMirror::Row(std::size_t index) const
{
    static const std::string none;
    const auto& rows = list_.Rows();
    return index < rows.size() && index < shownRows_ ? rows[index] : none;
}

void ListMirror::OnSync()
{
    Paint();
    shownRows_ = list_.Rows().size();
    SendMessageA(hwnd_, LVM_SETITEMCOUNT, shownRows_, 0);
    SendMessageA(hwnd_, LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(WidestRowPixels(), 0));
    if (emptied_) {
        emptied_ = false;
        if (shownRows_ > 0)
            SendMessageA(hwnd_, LVM_ENSUREVISIBLE, 0, FALSE);
        const int across = GetScrollPos(hwnd_, SB_HORZ);
        if (across > 0)
            SendMessageA(hwnd_, LVM_SCROLL, static_cast<WPARAM>(-across), 0);
    }
    InvalidateRect(hwnd_, nullptr, TRUE);
}

int ListMirror::WidestRowPixels() const
{
    const auto& rows = list_.Rows();
    const std::string* widest = nullptr;
    std::size_t widestCells = 0;
    for (const std::string& row : rows) {
        const std::size_t cells = ShownColumns(row);
        if (!widest || cells > widestCells) {
            widest = &row;
            widestCells = cells;
        }
    }
    if (!widest)
        return 1;
    // The list's font is fixed-pitch, so the row with the most cells is the widest.
    HDC dc = GetDC(hwnd_);
    HGDIOBJ before =
        SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(hwnd_, WM_GETFONT, 0, 0)));
    RECT extent{0, 0, 0, 0};
    DrawTextA(dc, widest->c_str(), static_cast<int>(widest->size()), &extent,
              kRowFormat | DT_CALCRECT);
    SelectObject(dc, before);
    ReleaseDC(hwnd_, dc);
    return extent.right + 2 * kTextMargin;
}

bool ListMirror::OnNotify(NMHDR* header, LRESULT& result)
{
    if (header->code != LVN_GETDISPINFOA)
        return false;
    // Asked for by the view and by anyone reading a row through LVM_GETITEMTEXT.
    auto* info = reinterpret_cast<NMLVDISPINFOA*>(header);
    if ((info->item.mask & LVIF_TEXT) && info->item.pszText && info->item.cchTextMax > 0)
        lstrcpynA(info->item.pszText, Row(static_cast<std::size_t>(info->item.iItem)).c_str(),
                  info->item.cchTextMax);
    result = 0;
    return true;
}

void ListMirror::OnMeasure(MEASUREITEMSTRUCT* item)
{
    HDC dc = GetDC(hwnd_);
    HGDIOBJ before = SelectObject(dc, form_.Fonts().Get(list_.GetFont()));
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    SelectObject(dc, before);
    ReleaseDC(hwnd_, dc);
    item->itemHeight = static_cast<UINT>(metrics.tmHeight + 1);
}

void ListMirror::OnDraw(const DRAWITEMSTRUCT* item)
{
    const bool selected = item->itemState & ODS_SELECTED;
    HDC dc = item->hDC;
    RECT row = item->rcItem;
    SetBkColor(dc, selected ? GetSysColor(COLOR_HIGHLIGHT) : Back());
    SetTextColor(dc, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &row, nullptr, 0, nullptr);
    const std::string& text = Row(item->itemID);
    RECT place = row;
    place.left += kTextMargin;
    DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &place, kRowFormat);
    if (item->itemState & ODS_FOCUS)
        DrawFocusRect(dc, &row);
}

} // namespace tos::win::ui
