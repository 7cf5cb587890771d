#include "script/maxscript_literals.h"

namespace tos {

namespace {

int HexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

} // namespace

std::string StringLiteral(std::string_view text)
{
    std::string literal;
    literal.reserve(text.size() + 2);
    literal += '"';
    for (const char c : text) {
        switch (c) {
        case '\\':
            literal += "\\\\";
            break;
        case '"':
            literal += "\\\"";
            break;
        case '\n':
            literal += "\\n";
            break;
        case '\r':
            literal += "\\r";
            break;
        case '\t':
            literal += "\\t";
            break;
        default:
            literal += c;
        }
    }
    literal += '"';
    return literal;
}

std::string PathLiteral(std::string_view path)
{
    // A verbatim literal cannot hold a quote, and a line end would break the row.
    if (path.find_first_of("\"\r\n") != std::string_view::npos)
        return StringLiteral(path);
    std::string literal;
    literal.reserve(path.size() + 3);
    literal.append("@\"").append(path).append("\"");
    return literal;
}

LiteralRead ReadStringLiteral(std::string_view line, std::size_t start)
{
    LiteralRead read;
    std::size_t i = start;
    const bool verbatim = i < line.size() && line[i] == '@';
    if (verbatim)
        ++i;
    ++i; // the opening quote
    while (i < line.size()) {
        const char c = line[i];
        if (c == '"') {
            read.end = i + 1;
            read.closed = true;
            return read;
        }
        if (verbatim || c != '\\' || i + 1 == line.size()) {
            read.text += c;
            ++i;
            continue;
        }
        const char next = line[i + 1];
        i += 2;
        switch (next) {
        case '"':
        case '\\':
        case '*':
        case '?':
        case '%':
            read.text += next;
            break;
        case 'n':
            read.text += '\n';
            break;
        case 'r':
            read.text += '\r';
            break;
        case 't':
            read.text += '\t';
            break;
        case 'x': {
            int value = 0;
            std::size_t digits = 0;
            while (i < line.size() && HexValue(line[i]) >= 0) {
                value = (value * 16 + HexValue(line[i])) & 0xFF;
                ++i;
                ++digits;
            }
            if (digits == 0)
                read.text += "\\x";
            else
                read.text += static_cast<char>(value);
            break;
        }
        default:
            // A backslash before any other character stays as it is.
            read.text += '\\';
            i -= 1;
        }
    }
    read.end = line.size();
    return read;
}

} // namespace tos
