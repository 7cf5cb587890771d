#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <ostream>

#include "cli/cli_session.h"
#include "cli/command_context.h"
#include "forms/app.h"
#include "script/script_check.h"

namespace tos::cli {

namespace {

struct ScriptOptions {
    LoadOptions load;
    std::string selection;
    std::optional<std::string> maxFile;
    std::optional<std::string> maxObject;
    bool useTolvarineName = false;
    bool useMaxName = false;
    std::optional<std::string> verticalScale;
    std::optional<std::string> verticalOffset;
    bool noSave = false;
    StyleOptions style;
    bool check = false;
};

// After the load, the form is filled in the order a user would, then Process
// is pressed if the form allows it.
int RunScript(const ScriptOptions& options, CommandContext& context)
{
    CliPlatform platform(context);
    tos::App app(platform);
    StartAndLoad(app, platform, options.load);
    MainForm& form = app.main;
    if (options.noSave)
        form.chkSave.SetValue(0);
    if (options.verticalScale)
        form.txtVerticalScale.SetText(*options.verticalScale);
    if (options.verticalOffset)
        form.txtVerticalOffset.SetText(*options.verticalOffset);
    ApplyStyleOptions(app, options.style);
    if (options.useTolvarineName)
        form.chkUseTolvarineName.SetValue(1);
    if (options.useMaxName)
        form.chkUseMaxName.SetValue(1);
    if (options.maxFile)
        form.txtMaxFile.SetText(*options.maxFile);
    if (options.maxObject)
        form.txtMaxObjectName.SetText(*options.maxObject);
    form.comboSelectObject.SetText(options.selection);
    if (form.btnProcess.Enabled())
        form.btnProcess.Click.Fire();
    // One write of the whole script: a stream insertion per row costs more than the rows.
    std::string script;
    for (const std::string& row : form.List2.Rows())
        script.append(row).push_back('\n');
    context.out << script;
    if (options.check)
        for (const ScriptFinding& finding : form.scriptFindings)
            context.err << FindingLine(app.state.ScriptFileName, finding) << '\n';
    return ExitStatus(platform);
}

} // namespace

void AddScriptCommand(CLI::App& cli, CommandContext& context)
{
    auto options = std::make_shared<ScriptOptions>();
    CLI::App* sub = cli.add_subcommand(
        "script", "Load a project, press Process for one object row or option row as the window "
                  "does, and print the script, one row a line");
    AddLoadOptions(*sub, options->load);
    sub->add_option("SELECTION", options->selection,
                    "An object row or option row of the object list, as typed into the combo box")
        ->required();
    const auto last = CLI::MultiOptionPolicy::TakeLast;
    sub->add_option("--max-file", options->maxFile, "Path of the .max file")
        ->type_name("TEXT")
        ->multi_option_policy(last);
    auto* object = sub->add_option("--max-object", options->maxObject,
                                   "Name of the object inside the .max file")
                       ->type_name("TEXT")
                       ->multi_option_policy(last);
    auto* tolvarine = sub->add_flag("--use-tolvarine-name", options->useTolvarineName,
                                    "The object name follows the selection");
    auto* maxName = sub->add_flag("--use-max-name", options->useMaxName,
                                  "The object name follows the .max file's base name");
    tolvarine->excludes(maxName);
    object->excludes(tolvarine);
    object->excludes(maxName);
    sub->add_option("--vertical-scale", options->verticalScale, "Text for Vertical Scale Adjust")
        ->type_name("TEXT")
        ->multi_option_policy(last);
    sub->add_option("--vertical-offset", options->verticalOffset,
                    "Text for Vertical Offset Adjust (Y)")
        ->type_name("TEXT")
        ->multi_option_policy(last);
    sub->add_flag("--no-save", options->noSave, "Print the script without writing its file");
    AddStyleOptions(*sub, options->style);
    sub->add_flag("--check", options->check,
                  "Then tell on stderr where today's 3ds Max would stop at or misread the script");
    sub->callback([&context, options] {
        context.action = [&context, options] { return RunScript(*options, context); };
    });
}

} // namespace tos::cli
