#include "project/project_load.h"

#include "forms/app.h"
#include "forms/common_dialog.h"
#include "forms/form_routines.h"
#include "project/object_list.h"
#include "project/scene_models.h"
#include "project/stock_groups.h"
#include "support/elements.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

namespace {

// The steps between the hourglass and its end; an early return skips to the end.
void LoadChosenProject(App& app, const std::string& chosen)
{
    RunState& s = app.state;
    MainForm& f = app.main;
    // The folder comes from the chosen path itself, never from the current directory.
    const std::string folder = FolderOfPath(chosen);
    const std::string base = GetBaseName(app.platform, chosen);

    s.ScnFile = folder + kPathSeparator + base + ".scn";
    if (!FileExists(s.ScnFile)) {
        app.Message("No SCN file found!!");
        return;
    }
    GetSLTcount(app);
    f.txtProjectFilePath.SetText(chosen);
    f.txtProjectFilePath.SetEnabled(true);
    s.CurrentDir = folder;
    s.DefaultDir = s.CurrentDir;
    SaveSettings(app);
    s.ScriptBasePath = folder + kPathSeparator + base;
    app.profiles.FlushProfileFile(s.ScnFile);
    GetProjectInfo(app);
    f.listsMainTile = f.chkMainTile.Value();
    ProcessSCNmodels(app, f);
    ProcessBillboards(app, f);
    ProcessBales(app, f);
    ProcessTripleBales(app, f);
    Process55GalDrums_TrashCans(app, f);
    LoadObjectList(app);
    f.btnProcess.SetEnabled(true);
}

} // namespace

void btnBrowseProjectFile_Click(App& app)
{
    const std::string chosen =
        ShowCommonDialog(app, FormId::Main, "Open Tolvarine Project File (PRJ)",
                         app.state.DefaultDir, "PRJ File (*.prj)|*.prj", Int16(1), false, "");
    if (!chosen.empty()) {
        app.SetMousePointer(FormId::Main, kPointerHourglass);
        LoadChosenProject(app, chosen);
    }
    app.SetMousePointer(FormId::Main, kPointerDefault);
}

void GetProjectInfo(App& app)
{
    RunState& s = app.state;
    MainForm& f = app.main;
    if (auto failure = Trap([&] {
            const std::string width =
                app.profiles.GetINIString("Environment", "TerrainWidth", s.ScnFile);
            if (!width.empty())
                f.txtNumberOfTiles.SetText(width);
            else
                app.Message(
                    "Cannot determine TerrainWidth value from project files.  Using default...");
            const std::string scale =
                app.profiles.GetINIString("Environment", "TerrainWidthScale", s.ScnFile);
            if (!scale.empty())
                f.txtGridRes.SetText(scale);
            else
                app.Message("Cannot determine TerrainWidthScale value from project files.  Using "
                            "default...");
        }))
        app.Message(TrapMessageColon("GetProjectInfo", *failure));
}

void ConnectProjectEvents(App& app)
{
    app.main.btnBrowseProjectFile.Click.Connect([&app] { btnBrowseProjectFile_Click(app); });
}

} // namespace tos
