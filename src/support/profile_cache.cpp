#include <algorithm>
#include <limits>

#include "support/conversions.h"
#include "support/element_view.h"
#include "support/profile.h"
#include "support/profile_state.h"

namespace tos {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

void SetCut(std::string& buffer, std::string_view value, std::int32_t size)
{
    buffer.assign(value.substr(0, static_cast<std::size_t>(std::max(size, 0))));
}

} // namespace

std::int32_t ProfileFiles::ReadValueFromCache(const std::string& section, const std::string& key,
                                              const std::string& defaultValue, std::string& buffer,
                                              std::int32_t size, const std::string& file)
{
    Impl& s = *impl_;
    Trap([&] {
        const FileFacts* facts = nullptr;
        if (Trap([&] { facts = &s.Facts(file); })) {
            SetCut(buffer, defaultValue, size);
            return;
        }
        // Paths are compared exactly: names that differ in case are different files here.
        if (file != s.SectionCacheFile || facts->stamp != s.SectionCacheStamp)
            LoadSectionCache(file);
        SetCut(buffer, defaultValue, size);

        const auto entry = s.SectionCache.find(TrimmedView(section));
        if (entry == s.SectionCache.end())
            return;
        s.SectionCachePos = entry->second;
        const std::string_view text = s.SectionCacheText;
        const auto length = static_cast<std::int64_t>(text.size());
        if (s.SectionCachePos >= length)
            return;
        const std::string_view wanted = TrimmedView(key);
        for (;;) {
            const std::int32_t before = s.SectionCachePos;
            const std::string_view line =
                NextElementOrMessage(s.platform, text, kLineEnd, s.SectionCachePos);
            const std::string_view name = ElementOrMessage(s.platform, line, "=", 0);
            if (EqualsIgnoringCase(TrimmedView(name), wanted)) {
                SetCut(buffer, ElementOrMessage(s.platform, line, "=", 1), size);
                return;
            }
            const std::size_t first = line.find_first_not_of(' ');
            if ((first != std::string_view::npos && line[first] == '[') ||
                s.SectionCachePos >= length)
                return;
            // A scan that cannot move on would never end.
            if (s.SectionCachePos == before)
                return;
        }
    });
    return static_cast<std::int32_t>(buffer.size());
}

void ProfileFiles::LoadSectionCache(const std::string& file)
{
    Impl& s = *impl_;
    s.SectionCache.clear();
    // From here on a step that fails is passed over and the next one runs.
    s.sectionCacheRead = !Trap([&] { s.SectionCacheText = ReadWholeFile(file); });
    s.SectionCachePos = 1;
    const std::string_view text = s.SectionCacheText;
    const auto length = static_cast<std::int64_t>(text.size());
    // Positions are 32-bit: a larger text has no reachable sections.
    if (length <= std::numeric_limits<std::int32_t>::max()) {
        s.SectionCache.reserve(static_cast<std::size_t>(length / 64));
        do {
            const std::int32_t before = s.SectionCachePos;
            const std::string_view line =
                TrimmedView(NextElementOrMessage(s.platform, text, kLineEnd, s.SectionCachePos));
            // Only a header that ends in "]" can equal a "[name]" lookup key.
            if (line.size() >= 2 && line.front() == '[' && line.back() == ']')
                s.SectionCache.try_emplace(std::string(line.substr(1, line.size() - 2)),
                                           s.SectionCachePos);
            if (s.SectionCachePos == before)
                break;
        } while (s.SectionCachePos < length);
    }
    s.SectionCacheFile = file;
    Trap([&] { s.SectionCacheStamp = s.FreshFacts(file).stamp; });
}

} // namespace tos
