#include "win/ui/compiler_window.h"

#include "forms/app.h"
#include "win/ui/control_mirrors.h"
#include "win/ui/list_mirror.h"

namespace tos::win::ui {

namespace {

// A dialog border without minimise and maximise buttons, which the user can
// still pull larger: the list takes the room.
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
constexpr DWORD kExStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

// Laid out on a grid of 15 twips, one pixel at 96 DPI.
TwipRect At(int left, int top, int width, int height)
{
    return {15 * left, 15 * top, 15 * width, 15 * height};
}

} // namespace

CompilerWindow::CompilerWindow(App& app, HWND owner)
    : FormWindow(app.compiler.caption, kStyle, kExStyle, owner, app.compiler.widthTwips,
                 app.compiler.heightTwips),
      app_(app)
{
    CompilerForm& f = app.compiler;
    const int width = app.compiler.widthTwips / 15;
    const int height = app.compiler.heightTwips / 15;
    const int buttons = height - 34;
    // Creation order is the tab order: Done, the frame and list, Add File, Save As.
    Add<ButtonMirror>(f.btnDone, At(width - 98, buttons, 90, 26), kMoveRight | kMoveDown);
    Add<FrameMirror>(f.frameCompiledMaxScript, At(8, 6, width - 16, buttons - 14),
                     kGrowRight | kGrowDown);
    Add<ListMirror>(f.lstMaxScripts, At(16, 24, width - 32, buttons - 40), kGrowRight | kGrowDown);
    Add<ButtonMirror>(f.btnAddFile, At(8, buttons, 90, 26), kMoveDown);
    Add<ButtonMirror>(f.btnSaveAs, At(104, buttons, 90, 26), kMoveDown);
    FinishLayout();

    FollowForm(app.compiler.formView, [this] { SyncForm(); });
    app.compiler.showModal = [this] { RunModal([this] { return app_.compiler.visible; }); };
    SyncForm();
}

CompilerWindow::~CompilerWindow()
{
    app_.compiler.showModal = nullptr;
}

void CompilerWindow::SyncForm()
{
    const CompilerForm& f = app_.compiler;
    SyncPlacement(f.left, f.top);
    // While modal, the loop hides the window once it ends.
    if (!f.visible && !InModalLoop() && IsWindowVisible(Handle()))
        ShowWindow(Handle(), SW_HIDE);
}

void CompilerWindow::OnClose()
{
    app_.compiler.btnDone.Click.Fire();
}

void CompilerWindow::OnCancel()
{
    app_.compiler.btnDone.Click.Fire();
}

int CompilerWindow::Pointer() const
{
    return app_.compiler.mousePointer;
}

} // namespace tos::win::ui
