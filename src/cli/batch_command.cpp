#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <ostream>

#include "batch/batch_list.h"
#include "batch/batch_run.h"
#include "cli/cli_session.h"
#include "cli/command_context.h"
#include "forms/app.h"

namespace tos::cli {

namespace {

struct BatchOptions {
    LoadOptions load;
    std::string batchFile;
    bool noSave = false;
    std::optional<std::string> combined;
    StyleOptions style;
};

// The window's Process All over the items of a batch list: one line per item on
// the output, every box of the read, the runs and the join on the error stream.
int RunBatchCommand(const BatchOptions& options, CommandContext& context)
{
    CliPlatform platform(context);
    tos::App app(platform);
    StartAndLoad(app, platform, options.load);
    if (options.noSave)
        app.main.chkSave.SetValue(0);
    ApplyStyleOptions(app, options.style);
    const BatchListRead read = ReadBatchList(AbsolutePath(options.batchFile));
    for (const std::string& problem : read.problems)
        app.Message(problem);
    if (!read.readable)
        return ExitStatus(platform);

    const BatchReport report = RunBatch(app, read.list.items, read.list.style,
                                        options.combined ? AbsolutePath(*options.combined) : "");
    for (const BatchItemReport& item : report.items) {
        context.out << ItemLine(item) << '\n';
        for (const ScriptFinding& finding : item.findings)
            context.err << FindingLine(item.scriptFile, finding) << '\n';
        for (const MessageBox& box : item.messages)
            platform.ShowMessage(box);
    }
    for (const MessageBox& box : report.messages)
        platform.ShowMessage(box);
    if (!report.items.empty())
        context.out << JoinedLine(report) << '\n';
    return ExitStatus(platform);
}

} // namespace

void AddBatchCommand(CLI::App& cli, CommandContext& context)
{
    auto options = std::make_shared<BatchOptions>();
    CLI::App* sub = cli.add_subcommand(
        "batch", "Load a project and run every item of a batch list as the Process All window "
                 "does: one script per item, then the scripts joined into one file");
    AddLoadOptions(*sub, options->load);
    sub->add_option("BATCHFILE", options->batchFile, "The batch list (a .tosbatch file)")
        ->required();
    sub->add_flag("--no-save", options->noSave,
                  "Uncheck Save To File: build every script, write no file");
    sub->add_option("--combined", options->combined,
                    "Where the joined script goes (default: <project>_Main_All.ms or "
                    "<project>_Per_All.ms beside the project)")
        ->type_name("OUT.ms")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    AddStyleOptions(*sub, options->style);
    sub->callback([&context, options] {
        context.action = [&context, options] { return RunBatchCommand(*options, context); };
    });
}

} // namespace tos::cli
