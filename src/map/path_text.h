#pragma once

#include <string>

namespace tos {

// A path as the file system spells it (the bytes that open the file) made text of
// the code page, for showing it. Windows spells paths in the code page already; a
// UTF-8 system spells "ä" in two bytes that would show as two wrong characters.
std::string PathAsText(const std::string& path);

} // namespace tos
