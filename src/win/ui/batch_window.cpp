#include "win/ui/batch_window.h"

#include "forms/batch_form.h"
#include "win/ui/control_mirrors.h"
#include "win/ui/list_mirror.h"
#include "win/ui/text_mirrors.h"

namespace tos::win::ui {

namespace {

// A dialog border the user can pull larger, and maximise: the table takes the room.
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX;
constexpr DWORD kExStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

// Laid out on a grid of 15 twips, one pixel at 96 DPI.
constexpr int kWidth = 960;
constexpr int kHeight = 600;
constexpr int kMargin = 8;
constexpr int kTableTop = 40;
constexpr int kSummaryTop = kHeight - 194;
constexpr int kButtonsTop = kHeight - 38;

TwipRect At(int left, int top, int width, int height)
{
    return {15 * left, 15 * top, 15 * width, 15 * height};
}

} // namespace

BatchWindow::BatchWindow(BatchForm& form, HWND owner)
    : FormWindow(form.caption, kStyle, kExStyle, owner, 15 * kWidth, 15 * kHeight), form_(form)
{
    // Creation order is the tab order: the file line, the table, the summary and the buttons.
    Add<LabelMirror>(form.lblBatchFile, At(kMargin, 11, 70, 16), kFixed);
    Add<TextBoxMirror>(form.txtBatchFile, At(80, 8, kWidth - 80 - 184, 22), kGrowRight);
    Add<ButtonMirror>(form.btnLoad, At(kWidth - 180, 7, 84, 24), kMoveRight);
    Add<ButtonMirror>(form.btnSave, At(kWidth - 92, 7, 84, 24), kMoveRight);
    table_ = &Add<BatchTable>(
        form.tblRows, At(kMargin, kTableTop, kWidth - 2 * kMargin, kSummaryTop - 6 - kTableTop),
        kGrowRight | kGrowDown, form);
    Add<LabelMirror>(form.lblSummary, At(kMargin, kSummaryTop, 300, 16), kMoveDown);
    Add<ListMirror>(form.lstSummary, At(kMargin, kSummaryTop + 18, kWidth - 2 * kMargin, 128),
                    kGrowRight | kMoveDown);
    Add<ButtonMirror>(form.btnRunBatch, At(kMargin, kButtonsTop, 110, 28), kMoveDown);
    Add<ButtonMirror>(form.btnClose, At(kWidth - kMargin - 90, kButtonsTop, 90, 28),
                      kMoveRight | kMoveDown);
    FinishLayout();

    FollowForm(form.formView, [this] { SyncForm(); });
    form.showModal = [this] { Open(); };
    SyncForm();
}

BatchWindow::~BatchWindow()
{
    form_.showModal = nullptr;
}

void BatchWindow::Open()
{
    // The first opening stands centred over the main window; later ones where
    // the user left it.
    if (!placed_) {
        placed_ = true;
        RECT owner{}, self{};
        GetWindowRect(GetWindow(Handle(), GW_OWNER), &owner);
        GetWindowRect(Handle(), &self);
        const int width = self.right - self.left;
        const int height = self.bottom - self.top;
        const int x = (owner.left + owner.right - width) / 2;
        const int y = (owner.top + owner.bottom - height) / 2;
        SetWindowPos(Handle(), nullptr, x > 0 ? x : 0, y > 0 ? y : 0, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    RunModal([this] { return form_.visible; });
}

void BatchWindow::SyncForm()
{
    ShowPointer();
    // While modal, the loop hides the window once it ends.
    if (!form_.visible && !InModalLoop() && IsWindowVisible(Handle()))
        ShowWindow(Handle(), SW_HIDE);
}

void BatchWindow::OnClose()
{
    form_.btnClose.Click.Fire();
}

void BatchWindow::OnCancel()
{
    form_.btnClose.Click.Fire();
}

int BatchWindow::Pointer() const
{
    return form_.mousePointer;
}

} // namespace tos::win::ui
