#include "forms/screen_text.h"

namespace tos {

std::size_t ShownColumns(std::string_view row)
{
    // Up to the first tab, a row is as wide as it is long; most rows hold none.
    const std::size_t tab = row.find('\t');
    if (tab == std::string_view::npos)
        return row.size();
    std::size_t columns = tab;
    for (const char c : row.substr(tab))
        columns = c == '\t' ? (columns / kTabColumns + 1) * kTabColumns : columns + 1;
    return columns;
}

bool IsFixedPitchFace(const std::string& face)
{
    return face.find("Courier") != std::string::npos || face.find("Mono") != std::string::npos;
}

std::string ChooseFace(const std::string& face,
                       const std::function<bool(const std::string&)>& installed)
{
    // Faces of the same metrics that free desktops carry.
    const char* standIn = face == "Courier New" ? "Liberation Mono"
                          : face == "Arial"     ? "Liberation Sans"
                                                : nullptr;
    if (standIn && !installed(face) && installed(standIn))
        return standIn;
    return face;
}

} // namespace tos
