#include <algorithm>
#include <charconv>
#include <cstring>

#include "support/failure.h"
#include "support/profile.h"
#include "support/profile_state.h"
#include "support/system.h"

namespace tos {

std::uint64_t DistinctValues::Hash(std::string_view value)
{
    // Eight bytes a step: values are a file name or so.
    std::uint64_t h = value.size() * 0x9E3779B97F4A7C15ULL;
    std::size_t i = 0;
    for (; i + 8 <= value.size(); i += 8) {
        std::uint64_t word;
        std::memcpy(&word, value.data() + i, 8);
        h = (h ^ word) * 0xFF51AFD7ED558CCDULL;
        h ^= h >> 32;
    }
    std::uint64_t tail = 0;
    if (i < value.size())
        std::memcpy(&tail, value.data() + i, value.size() - i);
    // The table takes the low bits, so every byte must reach them.
    h ^= tail;
    h = (h ^ (h >> 33)) * 0xFF51AFD7ED558CCDULL;
    h = (h ^ (h >> 33)) * 0xC4CEB9FE1A85EC53ULL;
    return h ^ (h >> 33);
}

std::uint32_t DistinctValues::NumberOf(std::string_view value)
{
    if (values_.size() + 1 > slots_.size() / 2) {
        // Kept at most half full.
        slots_.assign(std::max<std::size_t>(16, slots_.size() * 2), 0);
        for (std::uint32_t n = 0; n < values_.size(); ++n) {
            std::size_t slot = Hash(values_[n]) & (slots_.size() - 1);
            while (slots_[slot] != 0)
                slot = (slot + 1) & (slots_.size() - 1);
            slots_[slot] = n + 1;
        }
    }
    std::size_t slot = Hash(value) & (slots_.size() - 1);
    for (; slots_[slot] != 0; slot = (slot + 1) & (slots_.size() - 1))
        if (values_[slots_[slot] - 1] == value)
            return slots_[slot] - 1;
    if (values_.size() >= kFull)
        return kFull;
    values_.emplace_back(value);
    slots_[slot] = static_cast<std::uint32_t>(values_.size());
    return static_cast<std::uint32_t>(values_.size() - 1);
}

bool ProfileFiles::ForEachNumberedValue(const std::string& file, const std::string& prefix,
                                        std::int32_t last, const std::string& key,
                                        const NumberedVisit& visit)
{
    static const std::string kNotFound = "NotFound";
    Impl& s = *impl_;
    // The walk holds its answer: a visit may ask for another.
    const auto numbered = FindNumbered(file, prefix);
    if (numbered == nullptr)
        return false;
    LargeFile::WalkValues& known = s.large->walkValues;
    if (known.numbered != numbered || known.key != key) {
        ++s.large->walkTakeovers;
        known = {};
        known.numbered = numbered;
        known.key = key;
        known.offset.resize(numbered->sections.size());
        known.length.resize(numbered->sections.size());
        known.distinct.assign(numbered->sections.size(), LargeFile::kUnread);
    }
    const std::uint64_t generation = numbered->generation;
    // Whether the look at the file taken last showed that the cache holds it.
    std::uint64_t heldLook = 0;
    bool held = false;
    std::string byName;
    // Whether the kept values are this walk's; a walk inside a visit may take them over
    // for its own, which the count of takeovers tells.
    std::uint64_t takeovers = s.large->walkTakeovers;
    bool keeps = true;
    for (std::size_t i = 0; i < numbered->sections.size(); ++i) {
        const NumberedSection& at = numbered->sections[i];
        if (at.number > last)
            break;
        // The section's place is known while the cache it came from holds, as a look at
        // the file tells; otherwise the value is read by name, as any read would. A look
        // that is the same one as before needs no second comparison.
        const bool sameLook = held && s.look.valid && s.look.count == heldLook &&
                              CoarseNowNs() - s.look.takenNs < kLookLifetimeNs &&
                              generation == s.large->generation;
        if (!sameLook) {
            held = false;
            Trap([&] {
                const FileFacts& facts = s.Facts(file);
                held = facts.length >= kLargeFile && file == s.large->file &&
                       facts.stamp == s.large->stamp && generation == s.large->generation;
                heldLook = s.look.count;
            });
        }
        if (takeovers != s.large->walkTakeovers) {
            takeovers = s.large->walkTakeovers;
            keeps = known.numbered == numbered && known.key == key;
        }
        std::string_view value;
        std::uint32_t distinct = kNoDistinct;
        if (!held || at.behind < 0) {
            char digits[16];
            const auto end = std::to_chars(digits, digits + sizeof digits, at.number).ptr;
            byName = GetINIString(prefix + std::string(digits, end), key, file);
            value = byName;
        } else if (keeps && known.distinct[i] != LargeFile::kUnread) {
            value = std::string_view(s.large->text)
                        .substr(static_cast<std::size_t>(at.behind - 1) + known.offset[i],
                                known.length[i]);
            if (known.distinct[i] != LargeFile::kNoNumber)
                distinct = known.distinct[i];
        } else {
            std::string_view found;
            bool plain = false;
            Trap([&] {
                const Impl::Scanned scanned = s.ScanSection(at.behind, key);
                plain = scanned.plain;
                found = scanned.value.value_or(kNotFound).substr(0, kValueSize);
            });
            if (found == kNotFound)
                found = {};
            value = found;
            // A value whose reading could have shown a message is read again next time.
            const std::size_t first = static_cast<std::size_t>(at.behind) - 1;
            const std::size_t offset =
                found.empty()
                    ? 0
                    : static_cast<std::size_t>(found.data() - s.large->text.data()) - first;
            if (plain && keeps && at.behind >= 1 && offset <= 0xFFFF) {
                known.offset[i] = static_cast<std::uint16_t>(offset);
                known.length[i] = static_cast<std::uint8_t>(found.size());
                distinct = known.numbers.NumberOf(found);
                if (distinct == DistinctValues::kFull)
                    distinct = kNoDistinct;
                known.distinct[i] = distinct == kNoDistinct ? LargeFile::kNoNumber
                                                            : static_cast<std::uint16_t>(distinct);
            }
        }
        // A visit may read more keys of the same section, and may walk itself.
        const Impl::Visited* const outer = s.visited;
        const Impl::Visited current{
            held && at.behind >= 0, at.number, at.behind, heldLook, generation, &file, &prefix};
        s.visited = &current;
        try {
            visit(at.number, value, distinct);
        } catch (...) {
            s.visited = outer;
            throw;
        }
        s.visited = outer;
    }
    return true;
}

std::string_view ProfileFiles::GetVisitedValue(const std::string& prefix, std::int32_t number,
                                               const std::string& key, const std::string& file,
                                               std::string& spare)
{
    constexpr std::string_view kNotFound = "NotFound";
    Impl& s = *impl_;
    const Impl::Visited* const v = s.visited;
    // The section's place serves only while the look that showed the cache holding the
    // file is still the one a read would use; otherwise it is read by name, as any read.
    const bool held =
        v != nullptr && v->held && v->number == number && s.look.valid && s.look.count == v->look &&
        CoarseNowNs() - s.look.takenNs < kLookLifetimeNs && v->generation == s.large->generation &&
        (&file == v->file || file == *v->file) && (&prefix == v->prefix || prefix == *v->prefix);
    if (!held) {
        char digits[16];
        const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        spare = GetINIString(prefix + std::string(digits, end), key, file);
        return spare;
    }
    std::string_view value = kNotFound;
    Trap([&] {
        if (const auto found = s.ScanSection(v->behind, key).value)
            value = found->substr(0, kValueSize);
    });
    return value == kNotFound ? std::string_view() : value;
}

} // namespace tos
