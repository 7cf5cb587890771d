#include "support/profile_index.h"

#include <algorithm>
#include <cstring>

#include "support/case_blind.h"

namespace tos {

namespace {

// Slots are kept at most four fifths full, so a probe ends soon.
std::size_t SlotsFor(std::size_t names)
{
    std::size_t n = 16;
    while (n / 5 * 4 < names)
        n *= 2;
    return n;
}

} // namespace

void SectionIndex::Reset(std::size_t expected)
{
    entries_.clear();
    entries_.shrink_to_fit();
    entries_.reserve(expected);
    slots_.assign(SlotsFor(expected), 0);
}

std::size_t SectionIndex::SlotOf(std::string_view text, std::string_view name) const
{
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = CaseBlindHash{}(name)&mask;
    for (;;) {
        const std::uint32_t taken = slots_[slot];
        if (taken == 0)
            return slot;
        const Entry& e = entries_[taken - 1];
        if (e.length == name.size() && EqualsIgnoringCase(text.substr(e.at, e.length), name))
            return slot;
        slot = (slot + 1) & mask;
    }
}

void SectionIndex::Grow(std::string_view text)
{
    slots_.assign(slots_.size() * 2, 0);
    for (std::size_t i = 0; i < entries_.size(); ++i)
        slots_[SlotOf(text, Name(text, i))] = static_cast<std::uint32_t>(i + 1);
}

void SectionIndex::Add(std::string_view text, std::uint32_t at, std::uint32_t length)
{
    if (slots_.empty())
        Reset(0);
    const std::string_view name = text.substr(at, length);
    std::size_t slot = SlotOf(text, name);
    if (slots_[slot] != 0)
        return;
    if (entries_.size() + 1 > slots_.size() / 5 * 4) {
        Grow(text);
        slot = SlotOf(text, name);
    }
    entries_.push_back({at, length});
    slots_[slot] = static_cast<std::uint32_t>(entries_.size());
}

std::int32_t SectionIndex::Find(std::string_view text, std::string_view name) const
{
    if (slots_.empty())
        return -1;
    const std::uint32_t taken = slots_[SlotOf(text, name)];
    return taken == 0 ? -1 : Behind(text, taken - 1);
}

std::int32_t SectionIndex::Behind(std::string_view text, std::size_t i) const
{
    // Only blanks stand between the closing bracket and the line's end.
    const std::size_t end = text.find("\r\n", entries_[i].at + entries_[i].length);
    const std::size_t behind = end == std::string_view::npos ? text.size() : end + 3;
    return static_cast<std::int32_t>(std::min(behind, text.size()));
}

std::size_t SectionIndex::CountHeaderLines(std::string_view text)
{
    // Headers are few among the lines, so look for the brackets and then back to the
    // line's start.
    std::size_t count = 0;
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    for (const char* p = begin; p < end;) {
        const auto* bracket = static_cast<const char*>(std::memchr(p, '[', end - p));
        if (bracket == nullptr)
            break;
        const char* q = bracket;
        while (q > begin && q[-1] == ' ')
            --q;
        if (q == begin || q[-1] == '\n')
            ++count;
        p = bracket + 1;
    }
    return count;
}

} // namespace tos
