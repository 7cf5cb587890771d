#include "combiner/script_combiner.h"

#include <string_view>

#include "forms/app.h"
#include "forms/common_dialog.h"
#include "forms/form_routines.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

namespace {

constexpr const char* kScriptFilter = "MS File (*.ms)|*.ms";

// Adds the lines of a script as rows. A line ends at CR or at CR LF, and neither
// belongs to the row; a line feed alone is part of its row. Nothing follows a
// line end at the very end of the text.
void AddScriptLines(ListBox& list, std::string_view bytes)
{
    std::size_t start = 0;
    while (start < bytes.size()) {
        const std::size_t end = bytes.find('\r', start);
        if (end == std::string_view::npos) {
            list.AddItem(std::string(bytes.substr(start)));
            return;
        }
        list.AddItem(std::string(bytes.substr(start, end - start)));
        start = end + 1;
        if (start < bytes.size() && bytes[start] == '\n')
            ++start;
    }
}

} // namespace

void btnRunScriptCompiler_Click(App& app)
{
    app.compiler.lstMaxScripts.Clear();
    app.compiler.visible = true;
    app.compiler.formView.Notify();
    // The view's modal loop returns once the form is hidden again.
    if (app.compiler.showModal)
        app.compiler.showModal();
}

void CompilerForm_Load(App& app)
{
    CenterFormVertical(app, FormId::Compiler);
    CenterFormHorizontal(app, FormId::Compiler);
}

void btnAddFile_Click(App& app)
{
    const std::string path =
        ShowCommonDialog(app, FormId::Compiler, "Open MAX Script File (MS)", app.state.DefaultDir,
                         kScriptFilter, Int16(1), false, "");
    if (!path.empty())
        AddScriptFile(app, path);
}

void AppendScriptFile(ListBox& list, const std::string& path)
{
    // The file is read whole and closed before the first row is added.
    AddScriptLines(list, ReadWholeFile(path));
    list.AddItem("");
    list.AddItem("");
}

void AddScriptFile(App& app, const std::string& path)
{
    auto failure = Trap([&] {
        app.SetMousePointer(FormId::Compiler, kPointerHourglass);
        app.profiles.FlushProfileFile(path);
        AppendScriptFile(app.compiler.lstMaxScripts, path);
    });
    if (failure)
        app.Message(TrapMessageLines("btnAddFile", *failure));
    app.SetMousePointer(FormId::Compiler, kPointerDefault);
}

void btnSaveAs_Click(App& app)
{
    const std::string path =
        ShowCommonDialog(app, FormId::Compiler, "Save Compiled MAX Script As... (MS)",
                         app.state.DefaultDir, kScriptFilter, Int16(1), true, "");
    if (!path.empty())
        SaveCombinedScript(app, path);
}

void SaveCombinedScript(App& app, const std::string& path)
{
    auto failure = Trap([&] {
        app.SetMousePointer(FormId::Compiler, kPointerHourglass);
        app.profiles.FlushProfileFile(path);
        WriteLinesCrLf(path, app.compiler.lstMaxScripts.Rows());
    });
    if (failure)
        app.Message(TrapMessageLines("btnSaveAs", *failure));
    app.SetMousePointer(FormId::Compiler, kPointerDefault);
}

void btnDone_Click(App& app)
{
    app.compiler.visible = false;
    app.compiler.formView.Notify();
}

void ConnectCombinerEvents(App& app)
{
    app.main.btnRunScriptCompiler.Click.Connect([&app] { btnRunScriptCompiler_Click(app); });
    app.compiler.btnAddFile.Click.Connect([&app] { btnAddFile_Click(app); });
    app.compiler.btnSaveAs.Click.Connect([&app] { btnSaveAs_Click(app); });
    app.compiler.btnDone.Click.Connect([&app] { btnDone_Click(app); });
}

} // namespace tos
