#include <CLI/CLI.hpp>

#include "cli/command_context.h"

namespace tos::cli {

void AddScriptCommand(CLI::App& cli, CommandContext& context)
{
    (void)cli;
    (void)context;
}

} // namespace tos::cli
