#pragma once

#include <string>

namespace tos::cli {

// Folder of the running executable, without a trailing separator.
std::string ProgramFolder();

} // namespace tos::cli
