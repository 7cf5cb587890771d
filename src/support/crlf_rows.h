#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tos {

// Hands the rows, each followed by CR LF, to write in pieces of about 64 KB, so a
// long script is neither written line by line nor held twice in memory. False as
// soon as write refuses a piece.
bool WriteRowsCrLf(const std::vector<std::string>& rows,
                   const std::function<bool(std::string_view)>& write);

} // namespace tos
