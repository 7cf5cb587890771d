#include "forms/script_findings.h"

#include "support/conversions.h"

namespace tos {

std::string FindingText(const ScriptFinding& finding)
{
    return finding.classic ? finding.text + " Tick For 3ds Max 2008 and later." : finding.text;
}

std::string CheckLine(const std::vector<ScriptFinding>& findings)
{
    if (findings.empty())
        return "";
    std::string line = FindingText(findings.front());
    if (findings.size() > 1)
        line += " (" + IntegerToText(static_cast<long long>(findings.size() - 1)) + " more)";
    return line;
}

std::string FindingLine(const std::string& file, const ScriptFinding& finding)
{
    return file + ":" + IntegerToText(static_cast<long long>(finding.line)) + ": " +
           (finding.classic ? finding.text + " Use --style max2008." : finding.text);
}

} // namespace tos
