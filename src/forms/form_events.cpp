#include "forms/form_events.h"

#include "forms/app.h"
#include "forms/common_dialog.h"
#include "forms/form_routines.h"
#include "support/conversions.h"
#include "support/files.h"

namespace tos {

namespace {

constexpr const char* kHelpFile = "TOS_Help.html";

void SetEditable(TextBox& box, bool editable)
{
    box.SetLocked(!editable);
    box.SetBack(editable ? BackColor::Window : BackColor::ButtonFace);
}

// Raises what was typed to the lower bound and writes it back rounded.
void CleanNumberBox(TextBox& box, double lowerBound, int decimals, const char* pattern)
{
    double v = TextToNumber(box.Text());
    if (v < lowerBound)
        v = lowerBound;
    box.SetText(FormatPattern(RoundHalfEven(v, decimals), pattern));
}

} // namespace

void chkMainTile_Click(App& app)
{
    MainForm& f = app.main;
    f.chkPerimeterTile.SetValue(f.chkMainTile.Checked() ? 0 : 1);
}

void chkPerimeterTile_Click(App& app)
{
    MainForm& f = app.main;
    f.chkMainTile.SetValue(f.chkPerimeterTile.Checked() ? 0 : 1);
}

void chkSave_Click(App& app)
{
    app.state.SaveToFile = app.main.chkSave.Checked();
}

void chkUseObjectScale_Click(App& app)
{
    MainForm& f = app.main;
    const bool scaleRules = f.chkUseObjectScale.Checked();
    SetEditable(f.txtObjectScale, scaleRules);
    SetEditable(f.txtGridSize, !scaleRules);
}

void chkMax2008_Click(App& app)
{
    MainForm& f = app.main;
    f.chkInstances.SetEnabled(f.chkMax2008.Checked());
    SaveScriptStyle(app);
}

void chkInstances_Click(App& app)
{
    SaveScriptStyle(app);
}

void txtGridSize_LostFocus(App& app)
{
    CleanNumberBox(app.main.txtGridSize, 1.0, 0, "0");
}

void txtObjectScale_LostFocus(App& app)
{
    CleanNumberBox(app.main.txtObjectScale, 0.1, 6, "0.000000");
}

void BrowseMaxFileInto(App& app, FormId form, TextBox& box)
{
    const std::string chosen =
        ShowCommonDialog(app, form, "Select Max Object File", app.state.ObjectDir,
                         "MAX File (*.max)|*.max", Int16(1), false, "");
    if (chosen.empty())
        return;
    app.state.ObjectDir = FolderOfPath(chosen);
    SaveSettings(app);
    box.SetText(chosen);
}

void btnBrowseMaxFile_Click(App& app)
{
    BrowseMaxFileInto(app, FormId::Main, app.main.txtMaxFile);
}

void LaunchHelp(App& app, const std::string& file)
{
    bool opened = false;
    (void)Trap([&] { opened = FileExists(file) && app.platform.OpenDocument(file); });
    if (!opened)
        app.Message("Error launching help file.");
}

void btnViewHelp_Click(App& app)
{
    LaunchHelp(app, app.platform.ProgramFolder() + kPathSeparator + kHelpFile);
}

void btnExit_Click(App& app)
{
    ExitProgram(app);
}

void ConnectMainFormEvents(App& app)
{
    MainForm& f = app.main;
    const auto on = [&app](Event& event, void (*routine)(App&)) {
        event.Connect([&app, routine] { routine(app); });
    };
    on(f.chkMainTile.Click, chkMainTile_Click);
    on(f.chkPerimeterTile.Click, chkPerimeterTile_Click);
    on(f.chkSave.Click, chkSave_Click);
    on(f.chkUseObjectScale.Click, chkUseObjectScale_Click);
    on(f.chkMax2008.Click, chkMax2008_Click);
    on(f.chkInstances.Click, chkInstances_Click);
    on(f.txtGridSize.LostFocus, txtGridSize_LostFocus);
    on(f.txtObjectScale.LostFocus, txtObjectScale_LostFocus);
    on(f.btnBrowseMaxFile.Click, btnBrowseMaxFile_Click);
    on(f.btnViewHelp.Click, btnViewHelp_Click);
    on(f.btnExit.Click, btnExit_Click);
}

} // namespace tos
