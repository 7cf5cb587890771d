#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/cli_session.h"
#include "cli/command_context.h"
#include "combiner/script_combiner.h"
#include "forms/app.h"
#include "shell/startup.h"
#include "support/files.h"

namespace tos::cli {

namespace {

struct CombineOptions {
    std::string output;
    std::vector<std::string> inputs;
};

// The open dialog takes only existing files; "" stays allowed, as a Cancel.
const CLI::Validator kExistingOrEmpty(
    [](std::string& path) -> std::string {
        if (path.empty() || FileExists(path))
            return {};
        return "No such script file: " + path;
    },
    "FILE", "existing file or \"\"");

int Combine(CommandContext& context, const CombineOptions& options)
{
    CliPlatform platform(context);
    tos::App app(platform);
    Main(app);
    app.main.btnRunScriptCompiler.Click.Fire();
    for (const std::string& input : options.inputs) {
        platform.QueueDialogAnswer(AbsolutePath(input));
        app.compiler.btnAddFile.Click.Fire();
    }
    // Unlike the save dialog, the command may name a file that does not exist yet.
    if (!options.output.empty())
        SaveCombinedScript(app, AbsolutePath(options.output));
    app.compiler.btnDone.Click.Fire();
    return ExitStatus(platform);
}

} // namespace

void AddCombineCommand(CLI::App& cli, CommandContext& context)
{
    auto options = std::make_shared<CombineOptions>();
    CLI::App* sub = cli.add_subcommand(
        "combine", "Join .ms scripts into one file as the Combine Scripts window does: the lines "
                   "of each INPUT, then two empty lines; every line ends in CR LF");
    sub->add_option("OUTPUT", options->output,
                    "The combined script; an existing file is replaced, \"\" writes nothing")
        ->required();
    sub->add_option("INPUT", options->inputs, "Scripts to join, in this order (one or more)")
        ->required()
        ->check(kExistingOrEmpty);
    sub->callback([&context, options] {
        context.action = [&context, options] { return Combine(context, *options); };
    });
}

} // namespace tos::cli
