#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "cli/cli_session.h"
#include "cli/command_context.h"
#include "forms/app.h"

namespace tos::cli {

void AddObjectsCommand(CLI::App& cli, CommandContext& context)
{
    auto options = std::make_shared<LoadOptions>();
    CLI::App* sub = cli.add_subcommand(
        "objects", "Load a project as the window does and print its object list, one row a line");
    AddLoadOptions(*sub, *options);
    sub->callback([&context, options] {
        context.action = [&context, options] {
            CliPlatform platform(context);
            tos::App app(platform);
            StartAndLoad(app, platform, *options);
            for (const std::string& row : app.main.comboSelectObject.Items().Rows())
                context.out << row << '\n';
            return ExitStatus(platform);
        };
    });
}

} // namespace tos::cli
