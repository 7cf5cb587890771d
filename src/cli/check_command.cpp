#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "cli/command_context.h"
#include "script/script_check.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos::cli {

namespace {

// The lines of a script as 3ds Max reads them: a line ends at CR LF, LF or CR.
std::vector<std::string> ScriptLines(const std::string& bytes)
{
    std::vector<std::string> lines;
    std::string line;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (c != '\r' && c != '\n') {
            line += c;
            continue;
        }
        if (c == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n')
            ++i;
        lines.push_back(std::move(line));
        line.clear();
    }
    if (!line.empty())
        lines.push_back(std::move(line));
    return lines;
}

int Check(CommandContext& context, const std::vector<std::string>& files)
{
    // Every file is read before anything is told, so a missing one tells nothing else.
    std::vector<std::vector<std::string>> scripts;
    for (const std::string& file : files) {
        std::string bytes;
        if (auto failure = Trap([&] { bytes = ReadWholeFile(file); })) {
            context.err << "tos-cli: cannot read " << file << ": " << failure->Description()
                        << "\n";
            return kExitUsage;
        }
        scripts.push_back(ScriptLines(bytes));
    }
    bool any = false;
    for (std::size_t i = 0; i < files.size(); ++i)
        for (const ScriptFinding& finding : CheckScript(scripts[i])) {
            context.out << FindingLine(files[i], finding) << '\n';
            any = true;
        }
    return any ? kExitMessages : kExitOk;
}

} // namespace

void AddCheckCommand(CLI::App& cli, CommandContext& context)
{
    auto files = std::make_shared<std::vector<std::string>>();
    CLI::App* sub = cli.add_subcommand(
        "check", "Tell where today's 3ds Max would stop at or misread .ms scripts, of either "
                 "style or joined: one line FILE:LINE: text for each finding; exit 1 when any");
    sub->add_option("FILE", *files, "Scripts to check (one or more)")->required();
    sub->callback([&context, files] {
        context.action = [&context, files] { return Check(context, *files); };
    });
}

} // namespace tos::cli
