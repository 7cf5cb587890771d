#include "shell/process_command.h"

#include <array>
#include <string>

#include "forms/app.h"
#include "forms/record_walk.h"
#include "script/builder.h"
#include "script/script_check.h"
#include "script/stock_builders.h"
#include "support/conversions.h"
#include "support/elements.h"

namespace tos {

namespace {

// The selection must be one of the rows, ignoring case and nothing else.
bool IsListed(const ComboBox& combo, const std::string& selection)
{
    const std::string wanted = UpperCase(selection);
    const ListBox& rows = combo.Items();
    bool found = false;
    for (Int16 i = 0; i < rows.ListCount() && !found; ++i)
        found = UpperCase(rows.List(i)) == wanted;
    return found;
}

// The builders of option rows 1 to 4.
constexpr std::array<void (*)(App&), 4> kGroupBuilders{
    BuildBillboardScript, BuildBaleScript, BuildTripleBaleScript, Build55GalDrum_TrashCanScript};

} // namespace

void btnProcess_Click(App& app)
{
    MainForm& form = app.main;
    if (form.txtMaxFile.Text().empty()) {
        app.Message("Please specify a Max file");
        return;
    }
    if (form.txtMaxObjectName.Text().empty()) {
        app.Message("Please specify a Max object name");
        return;
    }
    const std::string selection = form.comboSelectObject.Text();
    if (selection.empty()) {
        app.Message("Please select an Object to process");
        return;
    }
    if (!IsListed(form.comboSelectObject, selection)) {
        app.Message("Please select only from the Object List");
        return;
    }

    app.SetMousePointer(FormId::Main, kPointerHourglass);
    const int option = StockOptionOf(app.platform, selection);
    // The scene may have changed since the load, and the builder reads it again.
    app.profiles.ForgetLastLook();
    if (option == 0)
        BuildScript(app);
    else
        kGroupBuilders[static_cast<std::size_t>(option - 1)](app);
    // A line under the script, never a box: the script itself is as specified.
    CheckShownScript(form);
    app.SetMousePointer(FormId::Main, kPointerDefault);
}

void chkUseTolvarineName_Click(App& app)
{
    MainForm& form = app.main;
    if (!form.chkUseTolvarineName.Checked())
        return;
    form.chkUseMaxName.SetValue(0);
    form.txtMaxObjectName.SetText(form.comboSelectObject.Text());
}

void chkUseMaxName_Click(App& app)
{
    MainForm& form = app.main;
    if (!form.chkUseMaxName.Checked())
        return;
    form.chkUseTolvarineName.SetValue(0);
    form.txtMaxObjectName.SetText(GetBaseName(app.platform, form.txtMaxFile.Text()));
}

void comboSelectObject_Changed(App& app)
{
    MainForm& form = app.main;
    if (form.chkUseTolvarineName.Checked())
        form.txtMaxObjectName.SetText(form.comboSelectObject.Text());
}

void txtMaxFile_Changed(App& app)
{
    MainForm& form = app.main;
    if (form.chkUseMaxName.Checked())
        form.txtMaxObjectName.SetText(GetBaseName(app.platform, form.txtMaxFile.Text()));
}

void ConnectProcessEvents(App& app)
{
    MainForm& form = app.main;
    form.btnProcess.Click.Connect([&app] { btnProcess_Click(app); });
    form.chkUseTolvarineName.Click.Connect([&app] { chkUseTolvarineName_Click(app); });
    form.chkUseMaxName.Click.Connect([&app] { chkUseMaxName_Click(app); });

    ComboBox& combo = form.comboSelectObject;
    for (Event* e : {&combo.Change, &combo.Click, &combo.DropDown, &combo.GotFocus,
                     &combo.LostFocus, &combo.Scroll})
        e->Connect([&app] { comboSelectObject_Changed(app); });

    TextBox& maxFile = form.txtMaxFile;
    for (Event* e : {&maxFile.Change, &maxFile.Click, &maxFile.DblClick, &maxFile.GotFocus,
                     &maxFile.LostFocus})
        e->Connect([&app] { txtMaxFile_Changed(app); });
}

} // namespace tos
