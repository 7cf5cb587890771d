#include "forms/code_page.h"

#include <array>
#include <cstddef>

namespace tos {

namespace {

// Characters of the bytes 0x80-0x9F; the rest of the code page equals Latin-1.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

char32_t CharOfByte(unsigned char byte)
{
    return byte >= 0x80 && byte <= 0x9F ? kHighControls[byte - 0x80] : char32_t(byte);
}

char ByteOfChar(char32_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(character);
    for (std::size_t i = 0; i < kHighControls.size(); ++i)
        if (kHighControls[i] == character)
            return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace tos
