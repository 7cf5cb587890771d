#include "cli/commands.h"

#include <CLI/CLI.hpp>
#include <ostream>

#include "cli/command_context.h"
#include "support/system.h"

namespace tos::cli {

int Run(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
        const std::string& programFolder)
{
    CommandContext context{
        out, err, programFolder.empty() ? ExecutableFolder() : programFolder, {}};
    CLI::App cli{"tos-cli: the Tolvarine Object Scripter from the command line.\n"
                 "Lists a project's objects, writes MAXScript files and combines them,\n"
                 "and draws scene maps.",
                 "tos-cli"};
    cli.set_version_flag("--version", std::string("tos-cli ") + TOS_VERSION);
    cli.require_subcommand(0, 1);
    // Options begin with "-" on every platform; "/" starts a path, also on Windows.
    cli.allow_windows_style_options(false);
    AddObjectsCommand(cli, context);
    AddScriptCommand(cli, context);
    AddCombineCommand(cli, context);
    AddMapCommand(cli, context);
    AddBatchCommand(cli, context);
    AddCheckCommand(cli, context);

    try {
        cli.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        out << cli.help();
        return kExitOk;
    } catch (const CLI::CallForVersion& e) {
        out << e.what() << '\n';
        return kExitOk;
    } catch (const CLI::ParseError& e) {
        err << "tos-cli: " << e.what() << "\nRun 'tos-cli --help' for usage.\n";
        return kExitUsage;
    }
    if (!context.action) {
        out << cli.help();
        return kExitOk;
    }
    return context.action();
}

} // namespace tos::cli
