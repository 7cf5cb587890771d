#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "support/conversions.h"

namespace tos {

// Hashing and equality that ignore case the way UpperCase does, usable with a
// string_view key so that a lookup needs no upper-cased copy.
struct CaseBlindHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const noexcept
    {
        std::uint64_t h = 14695981039346656037ULL;
        for (char c : s) {
            h ^= static_cast<unsigned char>(UpperChar(c));
            h *= 1099511628211ULL;
        }
        return static_cast<std::size_t>(h);
    }
};

struct CaseBlindEqual {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const noexcept
    {
        return EqualsIgnoringCase(a, b);
    }
};

// Blanks (32 only) off both ends, without a copy.
inline std::string_view TrimmedView(std::string_view t)
{
    while (!t.empty() && t.front() == ' ')
        t.remove_prefix(1);
    while (!t.empty() && t.back() == ' ')
        t.remove_suffix(1);
    return t;
}

// True for the decimal digits IntegerToText writes for a number from 1 to 2,147,483,647.
bool IsPositiveInt32Text(std::string_view digits, std::int32_t& value);

} // namespace tos
