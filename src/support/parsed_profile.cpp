#include "support/parsed_profile.h"

namespace tos {

bool IsProfileWhite(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

std::string_view TrimProfileWhite(std::string_view t)
{
    while (!t.empty() && IsProfileWhite(t.front()))
        t.remove_prefix(1);
    while (!t.empty() && IsProfileWhite(t.back()))
        t.remove_suffix(1);
    return t;
}

ParsedProfile::ParsedProfile(std::string text) : text_(std::move(text))
{
    // Views below point into text_, which is not touched again.
    const std::string_view all = text_;
    Section* current = nullptr;
    std::size_t at = 0;
    while (at < all.size()) {
        std::size_t end = all.find_first_of("\r\n", at);
        if (end == std::string_view::npos)
            end = all.size();
        const std::string_view line = TrimProfileWhite(all.substr(at, end - at));
        const bool crLf = all.substr(end, 2) == "\r\n";
        at = end + (crLf ? 2 : 1);
        if (line.empty())
            continue;
        const std::size_t close = line.rfind(']');
        if (line.front() == '[' && close != std::string_view::npos) {
            const std::string_view name = line.substr(1, close - 1);
            // Only the first section of a name is ever searched; later ones are skipped.
            if (index_.count(name) != 0) {
                current = nullptr;
                continue;
            }
            index_.emplace(name, sections_.size());
            sections_.push_back({name, {}});
            current = &sections_.back();
            continue;
        }
        if (current == nullptr)
            continue;
        const std::size_t eq = line.find('=');
        if (eq == std::string_view::npos) {
            current->keys.push_back({line, {}, false});
            continue;
        }
        std::string_view key = line.substr(0, eq);
        while (!key.empty() && IsProfileWhite(key.back()))
            key.remove_suffix(1);
        std::string_view value = line.substr(eq + 1);
        while (!value.empty() && IsProfileWhite(value.front()))
            value.remove_prefix(1);
        current->keys.push_back({key, value, true});
    }
}

std::optional<std::string_view> ParsedProfile::Value(std::string_view section,
                                                     std::string_view key) const
{
    const auto found = index_.find(TrimmedView(section));
    if (found == index_.end())
        return std::nullopt;
    const std::string_view wanted = TrimmedView(key);
    for (const KeyLine& line : sections_[found->second].keys) {
        if (!EqualsIgnoringCase(line.key, wanted))
            continue;
        if (!line.hasValue)
            return std::nullopt;
        std::string_view v = line.value;
        if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
            v = v.substr(1, v.size() - 2);
        return v;
    }
    return std::nullopt;
}

std::vector<std::string_view> ParsedProfile::SectionNames() const
{
    std::vector<std::string_view> names;
    names.reserve(sections_.size());
    for (const Section& s : sections_)
        names.push_back(s.name);
    return names;
}

} // namespace tos
