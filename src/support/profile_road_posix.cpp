#include <algorithm>

#include "support/failure.h"
#include "support/profile_state.h"

namespace tos {

namespace {

constexpr std::size_t kParsedCopies = 8;

} // namespace

std::int32_t ProfileFiles::Impl::ReadSmallFile(const std::string& section, const std::string& key,
                                               const std::string& defaultValue, std::string& buffer,
                                               std::int32_t size, const std::string& file,
                                               const FileFacts& facts)
{
    const ParsedProfile* profile = ParsedCopy(file, facts);
    std::optional<std::string_view> value;
    if (profile != nullptr)
        value = profile->Value(section, key);
    const std::string_view chosen = value.value_or(defaultValue);
    buffer.assign(chosen.substr(0, static_cast<std::size_t>(std::max(size - 1, 0))));
    return static_cast<std::int32_t>(buffer.size());
}

std::optional<std::vector<std::string>>
ProfileFiles::Impl::SmallFileSections(const std::string& file, const FileFacts& facts)
{
    const ParsedProfile* profile = ParsedCopy(file, facts);
    if (profile == nullptr)
        return std::nullopt;
    std::vector<std::string> names;
    for (std::string_view name : profile->SectionNames())
        names.emplace_back(name);
    return names;
}

void ProfileFiles::Impl::FlushSmallFile(const std::string& file)
{
    std::erase_if(parsed, [&](const Parsed& p) { return p.path == file; });
}

const ParsedProfile* ProfileFiles::Impl::ParsedCopy(const std::string& file, const FileFacts& facts)
{
    auto it =
        std::find_if(parsed.begin(), parsed.end(), [&](const Parsed& p) { return p.path == file; });
    if (it != parsed.end() && it->stamp == facts.stamp) {
        if (it != parsed.begin())
            std::rotate(parsed.begin(), it, it + 1);
        return parsed.front().profile.get();
    }
    if (it != parsed.end())
        parsed.erase(it);
    std::unique_ptr<ParsedProfile> profile;
    if (Trap([&] { profile = std::make_unique<ParsedProfile>(ReadWholeFile(file)); }))
        return nullptr;
    if (parsed.size() == kParsedCopies)
        parsed.pop_back();
    parsed.insert(parsed.begin(), Parsed{file, facts.stamp, std::move(profile)});
    return parsed.front().profile.get();
}

} // namespace tos
