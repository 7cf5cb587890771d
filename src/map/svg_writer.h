#pragma once

#include <iosfwd>
#include <string>

namespace tos {

struct SceneMap;

// Writes the map as a stand-alone SVG 1.1 document: terrain and tile grid, the
// main tile window, every model (one element each, class = kind and "taken",
// data-model = its number), the placements of the selection in script order,
// folded positions, 3ds Max's origin and axes, a legend, a scale bar, and under
// the picture the status line and the reader's notes, as the map window shows
// them. Models and placements carry the window's hover text as their title. The
// document is ASCII: other characters of the code page become references.
void WriteSvg(const SceneMap& map, std::ostream& out);
// The same document as one string.
std::string SvgDocument(const SceneMap& map);

} // namespace tos
