#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"

namespace tos::test {

// What one run of tos-cli gave.
struct CliResult {
    int status;
    std::string out, err;
};

// Runs tos-cli with these arguments; the program's own files are in programFolder.
inline CliResult RunCli(const std::vector<std::string>& args, const std::string& programFolder)
{
    std::vector<const char*> argv{"tos-cli"};
    for (const std::string& arg : args)
        argv.push_back(arg.c_str());
    std::ostringstream out, err;
    const int status = cli::Run(int(argv.size()), argv.data(), out, err, programFolder);
    return {status, out.str(), err.str()};
}

} // namespace tos::test
