#pragma once

#include <charconv>
#include <concepts>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace tos {

// A fraction in the SVG document, written as the map writes numbers.
struct Coordinate {
    double value;
};

// Text content or attribute value of the document: markup characters escaped, bytes
// above ASCII as character references, control characters (which XML forbids) as "?".
// Line ends stay: a hover text has several lines.
void AppendEscaped(std::string& out, std::string_view text);

// The SVG document gathers here and goes to the stream in large writes: an ostream
// insertion per piece cost more than the pieces, and a buffer of the whole document
// as much again as the document. Text, whole numbers and fractions go in.
class SvgSink {
public:
    explicit SvgSink(std::ostream& out);
    // The whole document into whole, for a caller that writes it in one piece.
    explicit SvgSink(std::string& whole);

    SvgSink& operator<<(std::string_view text)
    {
        text_ += text;
        return *this;
    }
    SvgSink& operator<<(Coordinate c);
    template <class C>
    requires std::same_as<C, char> SvgSink& operator<<(C c)
    {
        text_ += c;
        return *this;
    }
    // Whole numbers in plain decimal, as the stream writes them.
    template <std::integral I>
    requires(!std::same_as<I, char> && !std::same_as<I, bool>) SvgSink& operator<<(I value)
    {
        char digits[24];
        text_.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
        return *this;
    }

    // Text to escape, and text that append(buffer) writes, escaped: it is written in
    // place first, since it rarely needs escaping.
    void Escaped(std::string_view text) { AppendEscaped(text_, text); }
    template <std::invocable<std::string&> Append> void Escaped(Append append)
    {
        const std::size_t from = text_.size();
        append(text_);
        EscapeFrom(from);
    }

    // Between elements: what has gathered goes to the stream once it is a chunk.
    void Pass()
    {
        if (out_ != nullptr && text_.size() >= kChunk)
            Flush();
    }
    void Flush();

private:
    void EscapeFrom(std::size_t from);

    static constexpr std::size_t kChunk = 1 << 16;
    std::ostream* out_ = nullptr; // nullptr: the document stays in text_
    std::string own_;
    std::string& text_;
};

} // namespace tos
