#include "win/ui/main_window.h"

#include "forms/app.h"
#include "win/ui/control_mirrors.h"
#include "win/ui/list_mirror.h"
#include "win/ui/text_mirrors.h"

namespace tos::win::ui {

namespace {

constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_THICKFRAME;

// The form is laid out on a grid of 15 twips, one pixel at 96 DPI; a place is
// given in those steps from the top left of its frame.
struct Origin {
    int x;
    int y;
    TwipRect At(int left, int top, int width, int height) const
    {
        return {15 * (x + left), 15 * (y + top), 15 * width, 15 * height};
    }
};

constexpr Origin kForm{0, 0};
constexpr Origin kProjectFrame{8, 4};
constexpr Origin kMaxFrame{8, 194};
constexpr int kLeftWidth = 404;
constexpr int kRightLeft = 420;
constexpr int kRightWidth = 165;
constexpr int kFullWidth = 577;
// Heights of a text box and of a label's line; a label sits 3 below its box.
constexpr int kBox = 22;
constexpr int kLine = 16;
// A combo box is given the height of its dropped list too.
constexpr int kDroppedList = 260;

} // namespace

MainWindow::MainWindow(App& app)
    : FormWindow(app.main.caption, kStyle, WS_EX_CONTROLPARENT, nullptr, MainForm::kWidthTwips,
                 MainForm::kHeightTwips),
      app_(app)
{
    // Creation order is the tab order.
    BuildProjectFrame();
    BuildMaxFrame();
    BuildRightColumn();
    BuildOutputFrames();
    FinishLayout();
    FollowForm(app.main.formView, [this] { SyncForm(); });
    SyncForm();
}

void MainWindow::BuildProjectFrame()
{
    MainForm& f = app_.main;
    const Origin o = kProjectFrame;
    Add<FrameMirror>(f.frameSourceTolvarineProject, o.At(0, 0, kLeftWidth, 186), kFixed);
    Add<ButtonMirror>(f.btnBrowseProjectFile, o.At(10, 18, 66, 24), kFixed);
    Add<TextBoxMirror>(f.txtProjectFilePath, o.At(82, 19, 312, kBox), kFixed);
    Add<CheckBoxMirror>(f.chkMainTile, o.At(10, 46, 180, kBox), kFixed);
    Add<CheckBoxMirror>(f.chkPerimeterTile, o.At(192, 46, 206, kBox), kFixed);
    Add<LabelMirror>(f.lblNumberOfTiles, o.At(10, 71, 160, kLine), kFixed);
    Add<TextBoxMirror>(f.txtNumberOfTiles, o.At(172, 68, 44, kBox), kFixed);
    Add<LabelMirror>(f.lblGridRes, o.At(232, 71, 64, kLine), kFixed);
    Add<TextBoxMirror>(f.txtGridRes, o.At(296, 68, 54, kBox), kFixed);
    Add<LabelMirror>(f.lblNumOfSLTFiles, o.At(10, 93, 160, kLine), kFixed);
    Add<LabelMirror>(f.lblSLTcount, o.At(172, 93, 80, kLine), kFixed);
    Add<LabelMirror>(f.lblSelectObject, o.At(10, 116, 100, kLine), kFixed);
    Add<ComboBoxMirror>(f.comboSelectObject, o.At(110, 112, 284, kDroppedList), kFixed);
    Add<LabelMirror>(f.lblVerticalScale, o.At(10, 142, 160, kLine), kFixed);
    Add<TextBoxMirror>(f.txtVerticalScale, o.At(172, 139, 64, kBox), kFixed);
    Add<ButtonMirror>(f.btnSceneMap, o.At(248, 139, 146, 24), kFixed);
    Add<LabelMirror>(f.lblVerticalOffest, o.At(10, 165, 160, kLine), kFixed);
    Add<TextBoxMirror>(f.txtVerticalOffset, o.At(172, 162, 64, kBox), kFixed);
}

void MainWindow::BuildMaxFrame()
{
    MainForm& f = app_.main;
    const Origin o = kMaxFrame;
    Add<FrameMirror>(f.Frame2, o.At(0, 0, kLeftWidth, 96), kFixed);
    Add<ButtonMirror>(f.btnBrowseMaxFile, o.At(10, 18, 66, 24), kFixed);
    Add<TextBoxMirror>(f.txtMaxFile, o.At(82, 19, 312, kBox), kFixed);
    Add<LabelMirror>(f.lblMaxObjectName, o.At(10, 47, 90, kLine), kFixed);
    Add<TextBoxMirror>(f.txtMaxObjectName, o.At(100, 44, 294, kBox), kFixed);
    Add<CheckBoxMirror>(f.chkUseTolvarineName, o.At(10, 68, 170, kBox), kFixed);
    Add<CheckBoxMirror>(f.chkUseMaxName, o.At(190, 68, 200, kBox), kFixed);
}

void MainWindow::BuildRightColumn()
{
    MainForm& f = app_.main;
    int y = 10;
    auto next = [&y](int height, int gap) {
        const TwipRect place = kForm.At(kRightLeft, y, kRightWidth, height);
        y += height + gap;
        return place;
    };
    Add<ButtonMirror>(f.btnProcess, next(30, 4), kFixed);
    Add<CheckBoxMirror>(f.chkSave, next(kBox, 4), kFixed);
    Add<ButtonMirror>(f.btnProcessAll, next(24, 4), kFixed);
    Add<ButtonMirror>(f.btnRunScriptCompiler, next(24, 4), kFixed);
    Add<ButtonMirror>(f.btnViewHelp, next(24, 4), kFixed);
    Add<ButtonMirror>(f.btnExit, next(24, 10), kFixed);
    Add<CheckBoxMirror>(f.chkUseObjectScale, next(kBox, 2), kFixed);
    Add<TextBoxMirror>(f.txtObjectScale, next(kBox, 10), kFixed);
    Add<LabelMirror>(f.lblCalcGridSize, next(kLine, 6), kFixed);
    Add<TextBoxMirror>(f.txtGridSize, next(kBox, 0), kFixed);
}

void MainWindow::BuildOutputFrames()
{
    MainForm& f = app_.main;
    // The script list takes whatever room the user gives the window.
    Add<FrameMirror>(f.frameMaxScriptOutput, kForm.At(8, 292, kFullWidth, 96),
                     kGrowRight | kGrowDown);
    Add<CheckBoxMirror>(f.chkMax2008, kForm.At(16, 308, 200, 20), kFixed);
    Add<CheckBoxMirror>(f.chkInstances, kForm.At(220, 308, 200, 20), kFixed);
    Add<ListMirror>(f.List2, kForm.At(16, 330, kFullWidth - 16, 38), kGrowRight | kGrowDown);
    // One line under the script: what the check found, cut to the window's width.
    Add<LabelMirror>(f.lblScriptCheck, kForm.At(16, 370, kFullWidth - 16, kLine),
                     kGrowRight | kMoveDown, false, true);

    // The record lists are the program's working data, never shown. The credits
    // stand below the frame's top line, in two lines.
    Add<FrameMirror>(f.Frame1, kForm.At(8, 389, kFullWidth, 39), kGrowRight | kMoveDown);
    Add<LabelMirror>(f.lblVersion, kForm.At(18, 404, 70, kLine), kMoveDown);
    Add<LabelMirror>(f.lblCredits, kForm.At(98, 396, kFullWidth - 100, 30), kGrowRight | kMoveDown,
                     true);
}

void MainWindow::SyncForm()
{
    const MainForm& f = app_.main;
    SyncPlacement(f.left, f.top);
    if (f.visible != (IsWindowVisible(Handle()) != FALSE))
        ShowWindow(Handle(), f.visible ? SW_SHOW : SW_HIDE);
}

void MainWindow::OnClose()
{
    app_.main.btnExit.Click.Fire();
}

int MainWindow::Pointer() const
{
    return app_.main.mousePointer;
}

} // namespace tos::win::ui
