#include "shell/process_command.h"

#include <array>
#include <string>

#include "forms/app.h"
#include "forms/name_rule.h"
#include "forms/record_walk.h"
#include "script/builder.h"
#include "script/script_check.h"
#include "script/stock_builders.h"
#include "support/conversions.h"
#include "support/elements.h"

namespace tos {

namespace {

NameBoxes NameBoxesOf(MainForm& form)
{
    return {form.chkUseTolvarineName, form.chkUseMaxName, form.txtMaxObjectName};
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
    // The selection must be one of the rows, ignoring case and nothing else.
    if (!FindRowIgnoringCase(form.comboSelectObject.Items(), selection)) {
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
    UseTolvarineNameClicked(NameBoxesOf(app.main), app.main.comboSelectObject.Text());
}

void chkUseMaxName_Click(App& app)
{
    UseMaxNameClicked(app.platform, NameBoxesOf(app.main), app.main.txtMaxFile.Text());
}

void comboSelectObject_Changed(App& app)
{
    SelectionChanged(NameBoxesOf(app.main), app.main.comboSelectObject.Text());
}

void txtMaxFile_Changed(App& app)
{
    MaxFileChanged(app.platform, NameBoxesOf(app.main), app.main.txtMaxFile.Text());
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
