#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tos {

// A place in a script that today's 3ds Max would misread or stop at.
struct ScriptFinding {
    std::size_t line = 0; // 1-based line of the script
    std::string text;     // "3ds Max would stop at line 13: the name Big Tree needs quotes."
    bool classic = false; // found in a script of the classic style, which the other style mends

    bool operator==(const ScriptFinding&) const = default;
};

// A finding as the windows show it: a classic script's finding ends with the
// hint to tick the other style.
std::string FindingText(const ScriptFinding& finding);

// The one line under the script list: the first finding and how many follow.
std::string CheckLine(const std::vector<ScriptFinding>& findings);

// "FILE:LINE: text", as tos-cli prints a finding.
std::string FindingLine(const std::string& file, const ScriptFinding& finding);

} // namespace tos
