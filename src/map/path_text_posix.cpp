#include "map/path_text.h"

#include "forms/code_page.h"

namespace tos {

namespace {

// The length of the UTF-8 sequence at text[at] and its character, or 0 when the
// bytes there are no valid sequence.
std::size_t Sequence(const std::string& text, std::size_t at, char32_t& character)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    const std::size_t length = lead >= 0xF0 && lead <= 0xF4   ? 4
                               : lead >= 0xE0                 ? 3
                               : lead >= 0xC2 && lead <= 0xDF ? 2
                                                              : 0;
    if (length == 0 || at + length > text.size())
        return 0;
    character = lead & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto b = static_cast<unsigned char>(text[at + i]);
        if ((b & 0xC0) != 0x80)
            return 0;
        character = (character << 6) | (b & 0x3F);
    }
    const bool overlong =
        (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
    return overlong || character > 0x10FFFF ? 0 : length;
}

} // namespace

// A byte that starts no valid sequence is kept as it is: such a name was not
// written in UTF-8, and the code page is the best guess.
std::string PathAsText(const std::string& path)
{
    std::string text;
    text.reserve(path.size());
    for (std::size_t at = 0; at < path.size();) {
        char32_t character = 0;
        const std::size_t length =
            static_cast<unsigned char>(path[at]) < 0x80 ? 0 : Sequence(path, at, character);
        if (length == 0) {
            text += path[at++];
            continue;
        }
        text += ByteOfChar(character);
        at += length;
    }
    return text;
}

} // namespace tos
