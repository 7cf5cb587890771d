#include "win/ui/main_window.h"

#include "forms/app.h"
#include "forms/main_form_layout.h"
#include "win/ui/control_mirrors.h"
#include "win/ui/list_mirror.h"
#include "win/ui/text_mirrors.h"

namespace tos::win::ui {

namespace {

constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_THICKFRAME;

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

TwipRect MainWindow::Designed(const Control& control) const
{
    return TwipsOf(DesignedPlaceOf(app_.main, control));
}

void MainWindow::BuildProjectFrame()
{
    MainForm& f = app_.main;
    Put<FrameMirror>(f.frameSourceTolvarineProject, kFixed);
    Put<ButtonMirror>(f.btnBrowseProjectFile, kFixed);
    Put<TextBoxMirror>(f.txtProjectFilePath, kFixed);
    Put<CheckBoxMirror>(f.chkMainTile, kFixed);
    Put<CheckBoxMirror>(f.chkPerimeterTile, kFixed);
    Put<LabelMirror>(f.lblNumberOfTiles, kFixed);
    Put<TextBoxMirror>(f.txtNumberOfTiles, kFixed);
    Put<LabelMirror>(f.lblGridRes, kFixed);
    Put<TextBoxMirror>(f.txtGridRes, kFixed);
    Put<LabelMirror>(f.lblNumOfSLTFiles, kFixed);
    Put<LabelMirror>(f.lblSLTcount, kFixed);
    Put<LabelMirror>(f.lblSelectObject, kFixed);
    TwipRect combo = Designed(f.comboSelectObject);
    combo.height = 15 * kDroppedList;
    Add<ComboBoxMirror>(f.comboSelectObject, combo, kFixed);
    Put<LabelMirror>(f.lblVerticalScale, kFixed);
    Put<TextBoxMirror>(f.txtVerticalScale, kFixed);
    Put<ButtonMirror>(f.btnSceneMap, kFixed);
    Put<LabelMirror>(f.lblVerticalOffest, kFixed);
    Put<TextBoxMirror>(f.txtVerticalOffset, kFixed);
}

void MainWindow::BuildMaxFrame()
{
    MainForm& f = app_.main;
    Put<FrameMirror>(f.Frame2, kFixed);
    Put<ButtonMirror>(f.btnBrowseMaxFile, kFixed);
    Put<TextBoxMirror>(f.txtMaxFile, kFixed);
    Put<LabelMirror>(f.lblMaxObjectName, kFixed);
    Put<TextBoxMirror>(f.txtMaxObjectName, kFixed);
    Put<CheckBoxMirror>(f.chkUseTolvarineName, kFixed);
    Put<CheckBoxMirror>(f.chkUseMaxName, kFixed);
}

void MainWindow::BuildRightColumn()
{
    MainForm& f = app_.main;
    Put<ButtonMirror>(f.btnProcess, kFixed);
    Put<CheckBoxMirror>(f.chkSave, kFixed);
    Put<ButtonMirror>(f.btnProcessAll, kFixed);
    Put<ButtonMirror>(f.btnRunScriptCompiler, kFixed);
    Put<ButtonMirror>(f.btnViewHelp, kFixed);
    Put<ButtonMirror>(f.btnExit, kFixed);
    Put<CheckBoxMirror>(f.chkUseObjectScale, kFixed);
    Put<TextBoxMirror>(f.txtObjectScale, kFixed);
    Put<LabelMirror>(f.lblCalcGridSize, kFixed);
    Put<TextBoxMirror>(f.txtGridSize, kFixed);
}

void MainWindow::BuildOutputFrames()
{
    MainForm& f = app_.main;
    // The script list takes whatever room the user gives the window.
    Put<FrameMirror>(f.frameMaxScriptOutput, kGrowRight | kGrowDown);
    Put<CheckBoxMirror>(f.chkMax2008, kFixed);
    Put<CheckBoxMirror>(f.chkInstances, kFixed);
    Put<ListMirror>(f.List2, kGrowRight | kGrowDown);
    // One line under the script: what the check found, cut to the window's width.
    Put<LabelMirror>(f.lblScriptCheck, kGrowRight | kMoveDown, false, true);

    // The record lists are the program's working data, never shown. The credits
    // stand below the frame's top line, in two lines.
    Put<FrameMirror>(f.Frame1, kGrowRight | kMoveDown);
    Put<LabelMirror>(f.lblVersion, kMoveDown);
    Put<LabelMirror>(f.lblCredits, kGrowRight | kMoveDown, true);
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
