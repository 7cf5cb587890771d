#include "win/ui/batch_table.h"

#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "win/ui/form_window.h"

namespace tos::win::ui {

namespace {

// Designed widths of the columns in pixels at 96 DPI, in the order of BatchColumn.
constexpr int kDesigned[kBatchColumns] = {214, 200, 64, 140, 82, 80, 64, 64};
constexpr int kMargin = 4;
constexpr int kCheckSide = 13;
constexpr UINT kTextFormat = DT_SINGLELINE | DT_NOPREFIX | DT_VCENTER | DT_END_ELLIPSIS;

BatchColumn ColumnAt(int index)
{
    return static_cast<BatchColumn>(index);
}

bool Editable(const BatchCell& cell)
{
    return cell.text && cell.text->Enabled() && !cell.text->Locked();
}

// What a cell says when read through the view: a check box's state and caption, a
// text box's text, a button's caption.
std::string Said(const BatchCell& cell)
{
    if (cell.check)
        return (cell.check->Checked() ? "[x] " : "[ ] ") + cell.check->Caption();
    return cell.text ? cell.text->Text() : cell.button->Caption();
}

} // namespace

BatchTable::BatchTable(FormWindow& form, Control& table, BatchForm& batch)
    : ControlMirror(form, table), batch_(batch)
{
}

BatchTable::~BatchTable()
{
    // The editor goes with the view; the view gets its own procedure back first.
    if (viewBase_ && IsWindow(hwnd_))
        SetWindowLongPtrA(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(viewBase_));
}

void BatchTable::Make()
{
    Create(WC_LISTVIEWA,
           WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED |
               LVS_SINGLESEL | LVS_SHOWSELALWAYS,
           WS_EX_CLIENTEDGE);
}

void BatchTable::Created()
{
    SendMessageA(hwnd_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                 LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_DOUBLEBUFFER);
    for (int c = 0; c < kBatchColumns; ++c) {
        LVCOLUMNA column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = const_cast<char*>(BatchHeading(ColumnAt(c)));
        column.cx = form_.Dpi().Pixels(15 * kDesigned[c]);
        SendMessageA(hwnd_, LVM_INSERTCOLUMNA, static_cast<WPARAM>(c),
                     reinterpret_cast<LPARAM>(&column));
    }
    editor_ =
        CheckedWindow(CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_BORDER | ES_AUTOHSCROLL, 0, 0, 0,
                                      0, hwnd_, nullptr, GetModuleHandleA(nullptr), nullptr),
                      "the editor of the batch table");
    // Both windows find this table through their user data, not a property.
    SetWindowLongPtrA(hwnd_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrA(editor_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    viewBase_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ViewProc)));
    editorBase_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(editor_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&EditorProc)));
    Follow(batch_.rowsView, [this] { RowsReplaced(); });
    RowsReplaced();
}

HWND BatchTable::Editor() const
{
    return editing_ ? editor_ : nullptr;
}

void BatchTable::RowsReplaced()
{
    // An edit of a former row goes nowhere: its row is about to go.
    editing_ = false;
    ShowWindow(editor_, SW_HIDE);
    for (std::size_t i = 0; i < batch_.rows.size(); ++i)
        Follow(batch_.rows[i]->lineView, [this, i] { SendMessageA(hwnd_, LVM_REDRAWITEMS, i, i); });
    SendMessageA(hwnd_, LVM_SETITEMCOUNT, batch_.rows.size(), 0);
    if (!batch_.rows.empty() && FocusedRow() < 0) {
        LVITEMA state{};
        state.stateMask = LVIS_FOCUSED;
        state.state = LVIS_FOCUSED;
        SendMessageA(hwnd_, LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&state));
    }
    InvalidateRect(hwnd_, nullptr, TRUE);
}

int BatchTable::FocusedRow() const
{
    const auto row = SendMessageA(hwnd_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
    return row >= 0 && static_cast<std::size_t>(row) < batch_.rows.size() ? static_cast<int>(row)
                                                                          : -1;
}

bool BatchTable::OnNotify(NMHDR* header, LRESULT& result)
{
    result = 0;
    switch (header->code) {
    case LVN_GETDISPINFOA: {
        // Asked for by anyone reading a cell through LVM_GETITEMTEXT.
        auto* info = reinterpret_cast<NMLVDISPINFOA*>(header);
        const auto row = static_cast<std::size_t>(info->item.iItem);
        if ((info->item.mask & LVIF_TEXT) && info->item.pszText && info->item.cchTextMax > 0 &&
            row < batch_.rows.size() && info->item.iSubItem >= 0 &&
            info->item.iSubItem < kBatchColumns)
            lstrcpynA(info->item.pszText,
                      Said(CellOf(*batch_.rows[row], ColumnAt(info->item.iSubItem))).c_str(),
                      info->item.cchTextMax);
        return true;
    }
    case NM_CLICK:
    case NM_DBLCLK: {
        LVHITTESTINFO hit{};
        hit.pt = reinterpret_cast<NMITEMACTIVATE*>(header)->ptAction;
        SendMessageA(hwnd_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        if (hit.iItem >= 0 && hit.iSubItem >= 0 && hit.iSubItem < kBatchColumns)
            Activate(static_cast<std::size_t>(hit.iItem), ColumnAt(hit.iSubItem));
        return true;
    }
    case LVN_KEYDOWN: {
        const WORD key = reinterpret_cast<NMLVKEYDOWN*>(header)->wVKey;
        const int row = FocusedRow();
        if (row >= 0 && key == VK_SPACE)
            Activate(static_cast<std::size_t>(row), BatchColumn::Process);
        else if (row >= 0 && key == VK_F2)
            Activate(static_cast<std::size_t>(row), BatchColumn::MaxFile);
        return true;
    }
    default:
        return false;
    }
}

void BatchTable::Activate(std::size_t row, BatchColumn column)
{
    if (row >= batch_.rows.size())
        return;
    const BatchCell cell = CellOf(*batch_.rows[row], column);
    if (!cell.Of().Enabled())
        return;
    if (cell.check)
        cell.check->SetValue(cell.check->Checked() ? 0 : 1);
    else if (cell.button)
        cell.button->Click.Fire();
    else if (Editable(cell))
        BeginEdit(row, column);
}

void BatchTable::BeginEdit(std::size_t row, BatchColumn column)
{
    EndEdit(true);
    SendMessageA(hwnd_, LVM_ENSUREVISIBLE, row, FALSE);
    RECT cell{};
    cell.top = static_cast<LONG>(column);
    cell.left = LVIR_BOUNDS;
    SendMessageA(hwnd_, LVM_GETSUBITEMRECT, row, reinterpret_cast<LPARAM>(&cell));
    editing_ = true;
    editRow_ = row;
    editColumn_ = column;
    SendMessageA(editor_, WM_SETFONT, SendMessageA(hwnd_, WM_GETFONT, 0, 0), FALSE);
    SetWindowTextA(editor_, CellOf(*batch_.rows[row], column).text->Text().c_str());
    SetWindowPos(editor_, HWND_TOP, cell.left, cell.top, cell.right - cell.left,
                 cell.bottom - cell.top, SWP_SHOWWINDOW);
    SendMessageA(editor_, EM_SETSEL, 0, -1);
    SetFocus(editor_);
}

void BatchTable::EndEdit(bool commit)
{
    if (!editing_)
        return;
    // Marked first: hiding the editor moves the focus, which ends the edit again.
    editing_ = false;
    const int length = GetWindowTextLengthA(editor_);
    std::vector<char> text(static_cast<std::size_t>(length) + 1);
    GetWindowTextA(editor_, text.data(), length + 1);
    if (GetFocus() == editor_)
        SetFocus(hwnd_);
    ShowWindow(editor_, SW_HIDE);
    if (commit && editRow_ < batch_.rows.size())
        CellOf(*batch_.rows[editRow_], editColumn_)
            .text->SetText(std::string(text.data(), static_cast<std::size_t>(length)));
}

void BatchTable::EditNext(bool backwards)
{
    const std::size_t row = editRow_;
    int column = static_cast<int>(editColumn_);
    EndEdit(true);
    for (column += backwards ? -1 : 1; column >= 0 && column < kBatchColumns;
         column += backwards ? -1 : 1)
        if (row < batch_.rows.size() && Editable(CellOf(*batch_.rows[row], ColumnAt(column)))) {
            BeginEdit(row, ColumnAt(column));
            return;
        }
}

void BatchTable::FitColumns()
{
    // The .max file column takes what the others leave, never less than designed.
    RECT client{};
    GetClientRect(hwnd_, &client);
    int others = 0;
    for (int c = 0; c < kBatchColumns; ++c)
        if (ColumnAt(c) != BatchColumn::MaxFile)
            others += static_cast<int>(SendMessageA(hwnd_, LVM_GETCOLUMNWIDTH, c, 0));
    const int designed = form_.Dpi().Pixels(15 * kDesigned[static_cast<int>(BatchColumn::MaxFile)]);
    SendMessageA(hwnd_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(BatchColumn::MaxFile),
                 MAKELPARAM(std::max(designed, static_cast<int>(client.right) - others), 0));
}

void BatchTable::OnMeasure(MEASUREITEMSTRUCT* item)
{
    // Tall enough for a check box, a push button and an edit field.
    HDC dc = GetDC(hwnd_);
    HGDIOBJ before =
        SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(hwnd_, WM_GETFONT, 0, 0)));
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    SelectObject(dc, before);
    ReleaseDC(hwnd_, dc);
    item->itemHeight =
        static_cast<UINT>(std::max<int>(metrics.tmHeight + 8, form_.Dpi().Pixels(15 * 22)));
}

void BatchTable::OnDraw(const DRAWITEMSTRUCT* item)
{
    if (item->itemID >= batch_.rows.size())
        return;
    BatchRow& row = *batch_.rows[item->itemID];
    const bool selected = item->itemState & ODS_SELECTED;
    HDC dc = item->hDC;
    SetBkColor(dc, GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &item->rcItem, nullptr, 0, nullptr);
    SetTextColor(dc, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    RECT cell = item->rcItem;
    for (int c = 0; c < kBatchColumns; ++c) {
        cell.right = cell.left + static_cast<int>(SendMessageA(hwnd_, LVM_GETCOLUMNWIDTH, c, 0));
        DrawCell(dc, cell, CellOf(row, ColumnAt(c)));
        cell.left = cell.right;
    }
    if (item->itemState & ODS_FOCUS)
        DrawFocusRect(dc, &item->rcItem);
}

void BatchTable::DrawCell(HDC dc, RECT cell, const BatchCell& shown) const
{
    const int side = form_.Dpi().Pixels(15 * kCheckSide);
    const UINT inactive = shown.Of().Enabled() ? 0 : DFCS_INACTIVE;
    RECT text{cell.left + kMargin, cell.top, cell.right - kMargin, cell.bottom};
    if (shown.check) {
        RECT box{text.left, (cell.top + cell.bottom - side) / 2, text.left + side, 0};
        box.bottom = box.top + side;
        DrawFrameControl(dc, &box, DFC_BUTTON,
                         DFCS_BUTTONCHECK | DFCS_FLAT | inactive |
                             (shown.check->Checked() ? DFCS_CHECKED : 0));
        text.left = box.right + kMargin;
        DrawTextA(dc, shown.check->Caption().c_str(), -1, &text, kTextFormat);
    } else if (shown.button) {
        RECT face{cell.left + 1, cell.top + 1, cell.right - 1, cell.bottom - 1};
        DrawFrameControl(dc, &face, DFC_BUTTON, DFCS_BUTTONPUSH | inactive);
        const COLORREF before = SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
        const int mode = SetBkMode(dc, TRANSPARENT);
        DrawTextA(dc, shown.button->Caption().c_str(), -1, &face, kTextFormat | DT_CENTER);
        SetBkMode(dc, mode);
        SetTextColor(dc, before);
    } else {
        DrawTextA(dc, shown.text->Text().c_str(), -1, &text, kTextFormat);
    }
}

LRESULT CALLBACK BatchTable::ViewProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* self = reinterpret_cast<BatchTable*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
    switch (message) {
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_MOUSEWHEEL:
        // The editor stands over one cell; the cell is about to move.
        self->EndEdit(true);
        break;
    case WM_NOTIFY:
        if (reinterpret_cast<NMHDR*>(lParam)->code == HDN_BEGINTRACKA ||
            reinterpret_cast<NMHDR*>(lParam)->code == HDN_BEGINTRACKW)
            self->EndEdit(true);
        break;
    default:
        break;
    }
    const LRESULT result = CallWindowProcA(self->viewBase_, hwnd, message, wParam, lParam);
    if (message == WM_SIZE)
        self->FitColumns();
    return result;
}

LRESULT CALLBACK BatchTable::EditorProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* self = reinterpret_cast<BatchTable*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
    switch (message) {
    case WM_GETDLGCODE:
        // Enter, Escape and Tab belong to the editor, not to the dialog around it.
        return DLGC_WANTALLKEYS | CallWindowProcA(self->editorBase_, hwnd, message, wParam, lParam);
    case WM_KEYDOWN:
        if (wParam == VK_RETURN || wParam == VK_ESCAPE) {
            self->EndEdit(wParam == VK_RETURN);
            return 0;
        }
        if (wParam == VK_TAB) {
            self->EditNext(GetKeyState(VK_SHIFT) < 0);
            return 0;
        }
        break;
    case WM_CHAR:
        if (wParam == '\r' || wParam == '\x1b' || wParam == '\t')
            return 0;
        break;
    case WM_KILLFOCUS:
        self->EndEdit(true);
        break;
    case WM_MOUSEWHEEL:
        self->EndEdit(true);
        return SendMessageA(self->hwnd_, message, wParam, lParam);
    default:
        break;
    }
    return CallWindowProcA(self->editorBase_, hwnd, message, wParam, lParam);
}

} // namespace tos::win::ui
