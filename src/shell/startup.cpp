#include "shell/startup.h"

#include <cmath>

#include "combiner/script_combiner.h"
#include "project/catalogue.h"
#include "forms/app.h"
#include "forms/form_routines.h"
#include "shell/events.h"
#include "support/conversions.h"
#include "support/failure.h"

namespace tos {

namespace {

constexpr const char* kAppName = "Tolvarine Object Scripter";
constexpr const char* kIniName = "TolvarineObjectScripter.ini";

// A remembered folder, or the program's folder when none was stored.
std::string RestoreFolder(App& app, const std::string& valueName)
{
    std::string stored = GetRegStr(app, SettingsKey(app), valueName, kHkeyCurrentUser);
    return stored.empty() ? app.platform.ProgramFolder() : stored;
}

// The main form's load event places it and does nothing else.
void MainForm_Load(App& app)
{
    CenterFormVertical(app, FormId::Main);
    CenterFormHorizontal(app, FormId::Main);
}

} // namespace

void Main(App& app, const StartOptions& options)
{
    RunState& s = app.state;
    s.Pi = 4.0 * std::atan(1.0);
    s.AppName = kAppName;
    s.DefaultDir = RestoreFolder(app, "DefaultDir");
    s.ObjectDir = RestoreFolder(app, "ObjectDir");
    // Before the events are connected, so restoring writes nothing back.
    RestoreScriptStyle(app);
    s.IniFile = options.iniFile.empty() ? app.platform.ProgramFolder() + kPathSeparator + kIniName
                                        : options.iniFile;

    // The forms come into being with their event routines attached; a loaded
    // form stays hidden until shown.
    ConnectEvents(app);
    app.main.loaded = true;
    MainForm_Load(app);
    app.compiler.loaded = true;
    CompilerForm_Load(app);

    app.main.chkSave.SetValue(1);
    app.main.lblVersion.SetCaption("Beta 1");
    s.SaveToFile = true;

    app.main.visible = true;
    app.main.formView.Notify();

    LoadInternalObjects(app);
}

} // namespace tos
