#include <CLI/CLI.hpp>

#include "cli/command_context.h"

namespace tos::cli {

void AddCombineCommand(CLI::App& cli, CommandContext& context)
{
    (void)cli;
    (void)context;
}

} // namespace tos::cli
