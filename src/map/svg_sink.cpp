#include "map/svg_sink.h"

#include <algorithm>
#include <array>
#include <ostream>

#include "forms/code_page.h"
#include "map/map_presentation.h"

namespace tos {

namespace {

// The characters that stand in the document as they are.
constexpr std::array<bool, 256> MakePlainTable()
{
    std::array<bool, 256> plain{};
    for (int b = 0x20; b < 0x80; ++b)
        plain[b] = b != '&' && b != '<' && b != '>' && b != '"';
    plain['\t'] = plain['\n'] = true;
    return plain;
}
constexpr std::array<bool, 256> kPlain = MakePlainTable();

bool IsPlain(char ch)
{
    return kPlain[static_cast<unsigned char>(ch)];
}

} // namespace

void AppendEscaped(std::string& out, std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        // Runs of plain characters go in whole.
        const std::size_t from = at;
        while (at < text.size() && IsPlain(text[at]))
            ++at;
        out.append(text.substr(from, at - from));
        if (at == text.size())
            break;
        const char ch = text[at++];
        const auto b = static_cast<unsigned char>(ch);
        if (ch == '&')
            out += "&amp;";
        else if (ch == '<')
            out += "&lt;";
        else if (ch == '>')
            out += "&gt;";
        else if (ch == '"')
            out += "&quot;";
        else if (b >= 0x80)
            out += "&#" + std::to_string(static_cast<unsigned>(CharOfByte(b))) + ";";
        else
            out += '?';
    }
}

SvgSink::SvgSink(std::ostream& out) : out_(&out), text_(own_)
{
    text_.reserve(kChunk + kChunk / 4);
}

SvgSink::SvgSink(std::string& whole) : text_(whole) {}

SvgSink& SvgSink::operator<<(Coordinate c)
{
    AppendMapNumber(text_, c.value);
    return *this;
}

void SvgSink::EscapeFrom(std::size_t from)
{
    if (std::all_of(text_.begin() + static_cast<std::ptrdiff_t>(from), text_.end(),
                    [](char ch) { return IsPlain(ch); }))
        return;
    const std::string raw = text_.substr(from);
    text_.resize(from);
    AppendEscaped(text_, raw);
}

void SvgSink::Flush()
{
    if (out_ == nullptr)
        return;
    out_->write(text_.data(), static_cast<std::streamsize>(text_.size()));
    text_.clear();
}

} // namespace tos
