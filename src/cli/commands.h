#pragma once

#include <iosfwd>
#include <string>

namespace tos::cli {

// Runs tos-cli with its arguments (argv[0] included) and returns the exit status:
// 0 when no message box was shown, 1 when one or more were, 2 for a usage error.
// programFolder is where the catalogue file is looked for ("" = beside the program).
int Run(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
        const std::string& programFolder = "");

} // namespace tos::cli
