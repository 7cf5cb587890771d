#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tos {

// How the front ends put the forms' text on the screen, alike on every desktop.

// A tab in a list row goes on to the next multiple of this many columns.
inline constexpr std::size_t kTabColumns = 8;

// Columns a list row takes on the screen, tabs expanded.
std::size_t ShownColumns(std::string_view row);

// Whether a face is fixed-pitch: a script list must stay so whatever face stands in.
bool IsFixedPitchFace(const std::string& face);

// The face to ask the desktop for: the designed one where installed, else its
// metric-compatible stand-in where that is installed, else the designed name, so
// the desktop picks the nearest face of the same kind.
std::string ChooseFace(const std::string& face,
                       const std::function<bool(const std::string&)>& installed);

} // namespace tos
