#include <windows.h>

#include "support/profile_state.h"

namespace tos {

// Windows reads small profile files itself and keeps its own copy of them.

std::int32_t ProfileFiles::Impl::ReadSmallFile(const std::string& section, const std::string& key,
                                               const std::string& defaultValue, std::string& buffer,
                                               std::int32_t size, const std::string& file,
                                               const FileFacts&)
{
    buffer.assign(static_cast<std::size_t>(std::max(size, 1)), '\0');
    const DWORD n =
        GetPrivateProfileStringA(section.c_str(), key.c_str(), defaultValue.c_str(), buffer.data(),
                                 static_cast<DWORD>(buffer.size()), file.c_str());
    buffer.resize(n);
    return static_cast<std::int32_t>(n);
}

std::optional<std::vector<std::string>>
ProfileFiles::Impl::SmallFileSections(const std::string& file, const FileFacts& facts)
{
    // The names come as a list of zero-ended texts; a full buffer ends two short.
    std::string list(static_cast<std::size_t>(facts.length) + 2, '\0');
    DWORD n = 0;
    for (;;) {
        n = GetPrivateProfileSectionNamesA(list.data(), static_cast<DWORD>(list.size()),
                                           file.c_str());
        if (n + 2 < list.size())
            break;
        list.assign(list.size() * 2, '\0');
    }
    std::vector<std::string> names;
    std::size_t start = 0;
    while (start < n) {
        const std::size_t end = list.find('\0', start);
        names.push_back(list.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

void ProfileFiles::Impl::FlushSmallFile(const std::string& file)
{
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.c_str());
}

} // namespace tos
