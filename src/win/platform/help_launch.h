#pragma once

#include <string>

namespace tos::win {

// Opens the document with the handler the desktop has for its type, as
// ShellExecuteA(NULL, "open", file, "", "", 1). False when the system reports a
// failure, that is a result below 33.
bool LaunchDocument(const std::string& file);

} // namespace tos::win
