#include "support/files.h"

#include "support/crlf_rows.h"

#include "support/failure.h"
#include "support/system.h"

namespace tos {

bool WriteRowsCrLf(const std::vector<std::string>& rows,
                   const std::function<bool(std::string_view)>& write)
{
    constexpr std::size_t kChunk = 1 << 16;
    std::string pending;
    pending.reserve(kChunk + 256);
    for (const auto& row : rows) {
        pending += row;
        pending += "\r\n";
        if (pending.size() >= kChunk) {
            if (!write(pending))
                return false;
            pending.clear();
        }
    }
    return write(pending);
}

std::string CrLfText(const std::vector<std::string>& rows)
{
    std::size_t size = 0;
    for (const auto& row : rows)
        size += row.size() + 2;
    std::string text;
    text.reserve(size);
    for (const auto& row : rows)
        text.append(row).append("\r\n");
    return text;
}

void RefuseNulInName(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        Fail(err::BadFileName);
}

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
