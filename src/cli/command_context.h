#pragma once

#include <functional>
#include <iosfwd>
#include <string>

namespace CLI {
class App;
}

namespace tos::cli {

// Exit statuses of every sub-command.
inline constexpr int kExitOk = 0;
inline constexpr int kExitMessages = 1;
inline constexpr int kExitUsage = 2;

// What a sub-command needs to run: the streams, the folder of the program, and
// the action it registers, run after parsing succeeded.
struct CommandContext {
    std::ostream& out;
    std::ostream& err;
    std::string programFolder;
    std::function<int()> action;
};

// Each adds its sub-command with its options to the parser.
void AddObjectsCommand(CLI::App& cli, CommandContext& context);
void AddScriptCommand(CLI::App& cli, CommandContext& context);
void AddCombineCommand(CLI::App& cli, CommandContext& context);
void AddMapCommand(CLI::App& cli, CommandContext& context);
void AddBatchCommand(CLI::App& cli, CommandContext& context);
void AddCheckCommand(CLI::App& cli, CommandContext& context);

} // namespace tos::cli
