#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tos {

// MAXScript's rules for string literals, both ways: in a plain literal a
// backslash starts an escape (\" \n \r \t \* \? \% \\ \x..); in a verbatim
// literal @"..." every character stands for itself and none can be a quote.

// A plain literal that MAXScript reads back as text exactly.
std::string StringLiteral(std::string_view text);

// A path as MAXScript should read it: verbatim where it can be, else plain.
std::string PathLiteral(std::string_view path);

// What MAXScript reads from a literal that starts at line[start] (a quote, or
// @ and a quote). closed is false when the line ends inside the literal.
struct LiteralRead {
    std::string text;
    std::size_t end = 0; // behind the closing quote
    bool closed = false;
};
LiteralRead ReadStringLiteral(std::string_view line, std::size_t start);

} // namespace tos
