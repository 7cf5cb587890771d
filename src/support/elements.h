#pragma once

#include <string>
#include <string_view>

#include "support/checked.h"

namespace tos {

class Platform;

// Element index (0-based) of text split at delim. Positions are 16-bit; a range
// failure shows "GetElement:  6 - 0" and gives "".
std::string GetElement(Platform& platform, std::string_view text, std::string_view delim,
                       Int16 index);

// Next element of a scan over text from position (1-based, in and out). The
// position equal to the text's length is the end mark of the scan.
std::string GetNextElement(Platform& platform, std::string_view text, std::string_view delim,
                           Int32& position);

// Path parts on the text alone; "\" is a separator everywhere and, where the
// platform's separator is "/", "/" too. Failures give "" silently.
std::string GetFileName(Platform& platform, std::string_view path);
std::string GetBaseName(Platform& platform, std::string_view path);
std::string GetFileExtension(Platform& platform, std::string_view path);

} // namespace tos
