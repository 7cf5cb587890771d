#pragma once

#include <cstdint>
#include <string_view>

namespace tos {

class Platform;

// The element walks without copies, for readers that run them millions of times.
// A failure (the number it would raise) comes back instead of being thrown, so the
// caller decides how to report it.
struct ElementView {
    std::string_view value;
    int failure = 0;
};

// GetElement's walk: element index of text split at delim, 16-bit positions.
ElementView ElementAt(std::string_view text, std::string_view delim, int index);

// GetNextElement's step: position (1-based) is moved on only when there is no failure.
ElementView NextElementAt(std::string_view text, std::string_view delim, std::int32_t& position);

// The same walks for callers inside other routines: a failure shows the message that
// GetElement / GetNextElement show, and the element is "".
std::string_view ElementOrMessage(Platform& platform, std::string_view text, std::string_view delim,
                                  int index);
std::string_view NextElementOrMessage(Platform& platform, std::string_view text,
                                      std::string_view delim, std::int32_t& position);

} // namespace tos
