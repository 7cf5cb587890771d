#include <algorithm>
#include <cstring>
#include <limits>

#include "support/case_blind.h"
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

// The first element of a line split at "=", and the second one on request: the text
// up to the first "=" and the text between the first and the second. The element walk
// counts in 16 bits; a line that short cannot overflow it, so it is split directly.
struct KeyAndValue {
    std::string_view key;
    std::size_t equals = std::string_view::npos;
    bool walked = false;

    std::string_view value(Platform& platform, std::string_view line) const
    {
        if (walked)
            return ElementOrMessage(platform, line, "=", 1);
        if (equals == std::string_view::npos)
            return {};
        const std::size_t from = equals + 1;
        const std::size_t next = line.find('=', from);
        return line.substr(from, next == std::string_view::npos ? next : next - from);
    }
};

constexpr std::size_t kShortLine = 32000;
// Texts up to this length take NextLine's direct step; longer ones its element walk.
constexpr std::int64_t kShortText = std::numeric_limits<std::int32_t>::max() - 3;

// Where the line that starts at from ends: the CR of the first CR LF at or after from,
// or npos.
std::size_t LineEnd(std::string_view text, std::size_t from)
{
    return text.find(kLineEnd, from);
}

// GetNextElement's step at CR LF. Its range checks cannot fail on a text this short,
// so the step is taken directly; a longer text takes the walk itself.
std::string_view NextLine(Platform& platform, std::string_view text, std::int32_t& position)
{
    if (text.size() > static_cast<std::size_t>(kShortText) || position < 1)
        return NextElementOrMessage(platform, text, kLineEnd, position);
    const auto length = static_cast<std::int32_t>(text.size());
    if (position == length || length == 0)
        return {};
    if (position > length) {
        position = length;
        return {};
    }
    const auto from = static_cast<std::size_t>(position - 1);
    const std::size_t end = LineEnd(text, from);
    if (end == std::string_view::npos) {
        position = length;
        return text.substr(from);
    }
    position = std::min(static_cast<std::int32_t>(end + 3), length);
    return text.substr(from, end - from);
}

// The header lines the line walk of LoadSectionCache would see in a text of at most
// kShortText characters, added to index. The walk's lines start at the text's start and
// behind each CR LF, and it takes a line only while one more character follows its start;
// only a line that is "[" name "]" between blanks can match a lookup. So the brackets are
// looked for, and each one's line only where the bracket starts it.
void IndexHeaders(std::string_view text, SectionIndex& index)
{
    const char* const begin = text.data();
    const std::size_t length = text.size();
    std::size_t at = 0;
    while (at < length) {
        const auto* found = static_cast<const char*>(std::memchr(begin + at, '[', length - at));
        if (found == nullptr)
            return;
        const auto bracket = static_cast<std::size_t>(found - begin);
        std::size_t from = bracket;
        while (from > 0 && begin[from - 1] == ' ')
            --from;
        const bool startsLine =
            from == 0 || (from >= 2 && begin[from - 1] == '\n' && begin[from - 2] == '\r');
        if (!startsLine) {
            at = bracket + 1;
            continue;
        }
        if (from + 1 >= length)
            return;
        const std::size_t end = std::min(LineEnd(text, bracket), length);
        const std::string_view line = TrimmedView(text.substr(from, end - from));
        if (line.size() >= 2 && line.back() == ']')
            index.Add(text, static_cast<std::uint32_t>(line.data() + 1 - begin),
                      static_cast<std::uint32_t>(line.size() - 2));
        at = end + 2;
    }
}

KeyAndValue SplitAtEquals(Platform& platform, std::string_view line)
{
    if (line.size() > kShortLine)
        return {ElementOrMessage(platform, line, "=", 0), std::string_view::npos, true};
    const std::size_t equals = line.find('=');
    return {line.substr(0, equals), equals, false};
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
        if (file != s.large->file || facts->stamp != s.large->stamp)
            LoadSectionCache(file);
        SetCut(buffer, defaultValue, size);
        const std::int32_t behind = s.large->FindSection(TrimmedView(section));
        if (behind < 0)
            return;
        if (const auto value = s.ScanSection(behind, key).value)
            SetCut(buffer, *value, size);
    });
    return static_cast<std::int32_t>(buffer.size());
}

ProfileFiles::Impl::Scanned ProfileFiles::Impl::ScanSection(std::int32_t behind,
                                                            std::string_view key)
{
    Scanned found;
    large->pos = behind;
    const std::string_view text = large->text;
    const auto length = static_cast<std::int64_t>(text.size());
    if (large->pos >= length)
        return found;
    const std::string_view wanted = TrimmedView(key);
    if (length <= kShortText && behind >= 1)
        return ScanShortText(text, behind, wanted);
    for (;;) {
        const std::int32_t before = large->pos;
        const std::string_view line = NextLine(platform, text, large->pos);
        const KeyAndValue kv = SplitAtEquals(platform, line);
        found.plain = found.plain && !kv.walked;
        if (EqualsIgnoringCase(TrimmedView(kv.key), wanted)) {
            found.value = kv.value(platform, line);
            return found;
        }
        const std::size_t first = line.find_first_not_of(' ');
        if ((first != std::string_view::npos && line[first] == '[') || large->pos >= length)
            return found;
        // A scan that cannot move on would never end.
        if (large->pos == before)
            return found;
    }
}

ProfileFiles::Impl::Scanned ProfileFiles::Impl::ScanShortText(std::string_view text,
                                                              std::int32_t behind,
                                                              std::string_view wanted)
{
    // The same steps as the scan above where NextLine takes its direct step. A short line's
    // key is the text before its first "=" with the blanks around it dropped, so it is
    // wanted when the line is blanks, wanted, blanks and then "=" or its end (for a wanted
    // without "="). A long line still takes the element walk through SplitAtEquals.
    Scanned found;
    const bool direct = wanted.find('=') == std::string_view::npos;
    const std::size_t length = text.size();
    std::size_t from = static_cast<std::size_t>(behind - 1);
    for (;;) {
        const std::size_t end = std::min(LineEnd(text, from), length);
        const std::string_view line = text.substr(from, end - from);
        std::size_t first = 0;
        while (first < line.size() && line[first] == ' ')
            ++first;
        if (direct && line.size() <= kShortLine) {
            std::size_t behindKey = first + wanted.size();
            if (behindKey <= line.size() &&
                EqualsIgnoringCase(line.substr(first, wanted.size()), wanted)) {
                while (behindKey < line.size() && line[behindKey] == ' ')
                    ++behindKey;
                if (behindKey == line.size()) {
                    found.value = std::string_view();
                    return found;
                }
                if (line[behindKey] == '=') {
                    const std::string_view rest = line.substr(behindKey + 1);
                    found.value = rest.substr(0, rest.find('='));
                    return found;
                }
            }
        } else {
            const KeyAndValue kv = SplitAtEquals(platform, line);
            found.plain = found.plain && !kv.walked;
            if (EqualsIgnoringCase(TrimmedView(kv.key), wanted)) {
                found.value = kv.value(platform, line);
                return found;
            }
        }
        // The walk stops where its position reaches the text's length.
        if ((first < line.size() && line[first] == '[') || end + 3 >= length)
            return found;
        from = end + 2;
    }
}

void ProfileFiles::LoadSectionCache(const std::string& file)
{
    Impl& s = *impl_;
    s.large->index.Reset(0);
    // From here on a step that fails is passed over and the next one runs.
    s.large->read = !Trap([&] { s.large->text = ReadWholeFile(file); });
    s.large->pos = 1;
    const std::string_view text = s.large->text;
    const auto length = static_cast<std::int64_t>(text.size());
    // Positions are 32-bit: a larger text has no reachable sections.
    if (length <= kShortText) {
        s.large->index.Reset(SectionIndex::CountHeaderLines(text));
        IndexHeaders(text, s.large->index);
    } else if (length <= std::numeric_limits<std::int32_t>::max()) {
        s.large->index.Reset(SectionIndex::CountHeaderLines(text));
        do {
            const std::int32_t before = s.large->pos;
            const std::string_view line = TrimmedView(NextLine(s.platform, text, s.large->pos));
            // Only a header that ends in "]" can equal a "[name]" lookup key.
            if (line.size() >= 2 && line.front() == '[' && line.back() == ']')
                s.large->index.Add(text, static_cast<std::uint32_t>(line.data() + 1 - text.data()),
                                   static_cast<std::uint32_t>(line.size() - 2));
            if (s.large->pos == before)
                break;
        } while (s.large->pos < length);
    }
    s.large->file = file;
    ++s.large->generation;
    Trap([&] { s.large->stamp = s.FreshFacts(file).stamp; });
}

} // namespace tos
