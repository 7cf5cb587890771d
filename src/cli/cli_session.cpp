#include "cli/cli_session.h"

#include <CLI/CLI.hpp>
#include <ostream>

#include "forms/app.h"
#include "forms/form_routines.h"
#include "shell/startup.h"
#include "support/conversions.h"
#include "support/files.h"

namespace tos::cli {

CliPlatform::CliPlatform(CommandContext& context) : context_(context) {}

void CliPlatform::QueueDialogAnswer(std::string path)
{
    dialogAnswers_.push_back(std::move(path));
}

void CliPlatform::ShowMessage(const MessageBox& box)
{
    std::string line = box.title + ": ";
    for (const char c : box.text) {
        if (c == '\n')
            line += "\\n";
        else
            line += c;
    }
    context_.err << line << '\n';
    ++messageCount_;
}

std::string CliPlatform::ShowFileDialog(const FileDialogRequest&)
{
    if (dialogAnswers_.empty())
        return "";
    std::string answer = std::move(dialogAnswers_.front());
    dialogAnswers_.pop_front();
    return answer;
}

std::string CliPlatform::ReadSetting(const std::string&, const std::string&)
{
    return "";
}

// The tool never changes the folders the desktop program remembers.
void CliPlatform::WriteSetting(const std::string&, const std::string&, const std::string&) {}

bool CliPlatform::OpenDocument(const std::string&)
{
    return false;
}

std::string CliPlatform::ProgramFolder()
{
    return context_.programFolder;
}

void CliPlatform::SetMousePointer(FormId, int) {}

ScreenSize CliPlatform::Screen()
{
    return {};
}

void AddLoadOptions(CLI::App& sub, LoadOptions& options)
{
    sub.add_option("PROJECT", options.project,
                   "The project's .prj file; its .scn must lie beside it")
        ->required()
        ->check(
            [](const std::string& project) -> std::string {
                // The file dialog only ever answers an existing file.
                if (project.empty() || FileExists(AbsolutePath(project)))
                    return "";
                return "project file not found: " + project;
            },
            "");
    sub.add_flag("--perimeter", options.perimeter,
                 "Load the models of the perimeter tiles instead of the main tile");
    auto* scale = sub.add_option("--object-scale", options.objectScale,
                                 "Object scale in percent; the grid size follows from it")
                      ->type_name("TEXT")
                      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    auto* grid = sub.add_option("--grid-size", options.gridSize,
                                "Grid size in 3ds Max; the object scale follows from it")
                     ->type_name("TEXT")
                     ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    scale->excludes(grid);
    sub.add_option("--ini", options.iniFile,
                   "Stock catalogue file (default: TolvarineObjectScripter.ini beside the program)")
        ->type_name("FILE")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

void AddStyleOptions(CLI::App& sub, StyleOptions& options)
{
    sub.add_option("--style", options.style,
                   "Script style: classic (for 3ds Max 3.1, the default) or max2008 (for 3ds Max "
                   "2008 and later)")
        ->type_name("classic|max2008")
        ->check(CLI::IsMember({kClassicStyle, kMax2008Style}, CLI::ignore_case))
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    sub.add_flag("--instances", options.instances,
                 "With --style max2008: instances of the first object instead of copies");
    sub.parse_complete_callback([&options] {
        if (options.instances && !EqualsIgnoringCase(options.style, kMax2008Style))
            throw CLI::ValidationError("--instances", "needs --style max2008");
    });
}

void ApplyStyleOptions(tos::App& app, const StyleOptions& options)
{
    MainForm& f = app.main;
    f.chkMax2008.SetValue(EqualsIgnoringCase(options.style, kMax2008Style) ? 1 : 0);
    f.chkInstances.SetValue(options.instances ? 1 : 0);
}

std::string AbsolutePath(const std::string& path)
{
    return FullPath(path);
}

int StartAndLoad(tos::App& app, CliPlatform& platform, const LoadOptions& options)
{
    Main(app, StartOptions{options.iniFile});
    MainForm& f = app.main;
    if (options.perimeter)
        f.chkPerimeterTile.SetValue(f.chkPerimeterTile.Value() == 1 ? 0 : 1);
    if (options.gridSize) {
        f.chkUseObjectScale.SetValue(0);
        f.txtGridSize.SetText(*options.gridSize);
        f.txtGridSize.LostFocus.Fire();
    }
    if (options.objectScale) {
        f.txtObjectScale.SetText(*options.objectScale);
        f.txtObjectScale.LostFocus.Fire();
    }
    platform.QueueDialogAnswer(AbsolutePath(options.project));
    f.btnBrowseProjectFile.Click.Fire();
    return ExitStatus(platform);
}

int ExitStatus(const CliPlatform& platform)
{
    return platform.MessageCount() > 0 ? kExitMessages : kExitOk;
}

} // namespace tos::cli
