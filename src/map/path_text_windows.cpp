#include "map/path_text.h"

namespace tos {

std::string PathAsText(const std::string& path)
{
    return path;
}

} // namespace tos
