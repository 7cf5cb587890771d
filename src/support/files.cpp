#include "support/files.h"

#include "support/system.h"

namespace tos {

std::string FolderOfPath(const std::string& path)
{
    const std::size_t last = path.find_last_of(kPathSeparator);
    if (last == std::string::npos)
        return "";
    // The root keeps its separator: "/" and, on Windows, "C:\".
    const bool driveRoot = kPathSeparator == '\\' && last == 2 && path[1] == ':';
    if (last == 0 || driveRoot)
        return path.substr(0, last + 1);
    return path.substr(0, last);
}

} // namespace tos
