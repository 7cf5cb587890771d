#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tos {

// The section headers of the large-file reader's text, as offsets into that text: for
// each name its place, and from it the position behind its header line. Only the first section
// of a name is kept. Names compare without regard to case; a lookup allocates nothing.
// The text itself is held by the caller and must outlive every call that passes it.
class SectionIndex {
public:
    // Empties the index and makes room for about expected names.
    void Reset(std::size_t expected);
    // Records the name text[at, at + length) unless a name equal to it came first.
    void Add(std::string_view text, std::uint32_t at, std::uint32_t length);
    // The position behind the header of that name, or -1.
    std::int32_t Find(std::string_view text, std::string_view name) const;

    std::size_t Size() const { return entries_.size(); }
    std::string_view Name(std::string_view text, std::size_t i) const
    {
        return text.substr(entries_[i].at, entries_[i].length);
    }
    // The 1-based position behind the CR LF that ends the header, or the text's length
    // when no CR LF follows; the steps of the reader's line walk end there.
    std::int32_t Behind(std::string_view text, std::size_t i) const;

    // An upper bound of the header lines of text: lines whose first non-blank is "[".
    static std::size_t CountHeaderLines(std::string_view text);

private:
    struct Entry {
        std::uint32_t at;
        std::uint32_t length;
    };
    // The slot where name is, or the empty slot where it would go.
    std::size_t SlotOf(std::string_view text, std::string_view name) const;
    void Grow(std::string_view text);

    std::vector<Entry> entries_;
    std::vector<std::uint32_t> slots_; // 0 for free, else entry index + 1
};

} // namespace tos
