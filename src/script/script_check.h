#pragma once

#include <string>
#include <vector>

#include "forms/main_form.h"

namespace tos {

// Reads the rows of a script (or of several joined into one file) as today's
// 3ds Max would, and tells each place where it would stop or read something
// other than what was meant: a name that cannot stand after $ unquoted, a name
// that $ reads as a pattern or an object set, an empty name, and a .max path
// that a string literal reads differently. Each kind of finding is told once
// per script, at its first line.
std::vector<ScriptFinding> CheckScript(const std::vector<std::string>& rows);

// Checks the script the main form holds and shows the result under it.
void CheckShownScript(MainForm& form);

} // namespace tos
