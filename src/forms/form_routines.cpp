#include "forms/form_routines.h"

#include "forms/app.h"
#include "support/checked.h"
#include "support/conversions.h"
#include "support/failure.h"

namespace tos {

namespace {

struct FormGeometry {
    int* position;
    int extent;
    ViewNotifier* view;
};

FormGeometry Geometry(App& app, FormId form, bool vertical)
{
    if (form == FormId::Main)
        return {vertical ? &app.main.top : &app.main.left,
                vertical ? MainForm::kHeightTwips : MainForm::kWidthTwips, &app.main.formView};
    return {vertical ? &app.compiler.top : &app.compiler.left,
            vertical ? app.compiler.heightTwips : app.compiler.widthTwips, &app.compiler.formView};
}

// Each statement is passed over when it fails; a variable that was not set
// keeps 0, so an oversized screen puts the form at the edge.
void CenterForm(App& app, FormId form, bool vertical)
{
    const FormGeometry g = Geometry(app, form, vertical);
    Int16 screen;
    Int16 extent;
    Int16 room;
    (void)Trap([&] {
        const ScreenSize size = app.platform.Screen();
        screen = ToInt16(vertical ? size.heightTwips : size.widthTwips);
    });
    (void)Trap([&] { extent = ToInt16(g.extent); });
    (void)Trap([&] { room = screen - extent; });
    *g.position = room < Int16(1) ? 0 : room.value() / 2;
    g.view->Notify();
}

} // namespace

std::string SettingsKey(const App& app)
{
    return "Software\\" + app.state.AppName;
}

void SaveSettings(App& app)
{
    const std::string key = SettingsKey(app);
    SetRegStr(app, "DefaultDir", app.state.DefaultDir, key, kHkeyCurrentUser);
    SetRegStr(app, "ObjectDir", app.state.ObjectDir, key, kHkeyCurrentUser);
}

namespace {
constexpr const char* kStyleValue = "ScriptStyle";
constexpr const char* kInstancesValue = "Instances";
} // namespace

void SaveScriptStyle(App& app)
{
    const std::string key = SettingsKey(app);
    const MainForm& f = app.main;
    SetRegStr(app, kStyleValue, f.chkMax2008.Checked() ? kMax2008Style : kClassicStyle, key,
              kHkeyCurrentUser);
    SetRegStr(app, kInstancesValue, f.chkInstances.Checked() ? "1" : "0", key, kHkeyCurrentUser);
}

void RestoreScriptStyle(App& app)
{
    const std::string key = SettingsKey(app);
    std::string style;
    std::string instances;
    (void)Trap([&] { style = app.platform.ReadSetting(key, kStyleValue); });
    (void)Trap([&] { instances = app.platform.ReadSetting(key, kInstancesValue); });
    MainForm& f = app.main;
    f.chkMax2008.SetValue(EqualsIgnoringCase(style, kMax2008Style) ? 1 : 0);
    f.chkInstances.SetValue(instances == "1" ? 1 : 0);
    f.chkInstances.SetEnabled(f.chkMax2008.Checked());
}

void ExitProgram(App& app)
{
    app.compiler.visible = false;
    app.compiler.loaded = false;
    app.compiler.formView.Notify();
    app.main.visible = false;
    app.main.loaded = false;
    app.main.formView.Notify();
    if (app.endProcess)
        app.endProcess();
}

std::string GetRegStr(App& app, const std::string& key, const std::string& valueName, int root)
{
    // The per-user store has a single root.
    (void)root;
    std::string value;
    if (auto f = Trap([&] { value = app.platform.ReadSetting(key, valueName); })) {
        app.Message(TrapMessageLines("GetRegStr", *f));
        return "";
    }
    return value;
}

void SetRegStr(App& app, const std::string& valueName, const std::string& value,
               const std::string& key, int root)
{
    (void)root;
    if (key.empty())
        return;
    // A write that fails leaves the stored value as it was, without a word.
    (void)Trap([&] { app.platform.WriteSetting(key, valueName, value); });
}

void CenterFormVertical(App& app, FormId form)
{
    CenterForm(app, form, true);
}

void CenterFormHorizontal(App& app, FormId form)
{
    CenterForm(app, form, false);
}

} // namespace tos
