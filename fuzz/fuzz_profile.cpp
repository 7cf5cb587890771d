// Both roads of the profile reader on any file bytes and any section and key names. The
// file is read as it is, and once more behind enough lines to send it to the reader of
// large files; where the documented differences of the two readers cannot apply, both
// must give the same answers.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "common/fake_platform.h"
#include "fuzz_support.h"
#include "support/profile.h"

namespace {

using namespace tos;
using tos::fuzz::Require;

constexpr std::size_t kLargeFile = 65535;

std::vector<std::string_view> Lines(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = text.find("\r\n", at);
        if (end == std::string_view::npos)
            end = text.size();
        lines.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

std::string_view Blankless(std::string_view t)
{
    while (!t.empty() && t.front() == ' ')
        t.remove_prefix(1);
    while (!t.empty() && t.back() == ' ')
        t.remove_suffix(1);
    return t;
}

// A file on which the two readers may not differ: CR LF line ends only, no white space
// but blanks, no blank at a line's end, headers that end in "]", at most one "=" a line
// with no blank behind it, no quoted values, values the small-file reader does not cut,
// and no last line of one character.
bool Plain(std::string_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\t' || c == '\v' || c == '\f')
            return false;
        if (c == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'))
            return false;
        if (c == '\n' && (i == 0 || text[i - 1] != '\r'))
            return false;
    }
    const auto lines = Lines(text);
    if (!lines.empty() && lines.back().size() == 1 && !text.ends_with("\r\n"))
        return false;
    for (std::string_view line : lines) {
        if (line.size() > 30000 || (!line.empty() && line.back() == ' '))
            return false;
        const std::string_view t = Blankless(line);
        if (!t.empty() && t.front() == '[') {
            if (t.back() != ']')
                return false;
            continue;
        }
        const std::size_t eq = t.find('=');
        if (eq == std::string_view::npos)
            continue;
        const std::string_view value = t.substr(eq + 1);
        if (value.find('=') != std::string_view::npos || value.starts_with(' ') ||
            value.size() > 254)
            return false;
        if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
            value.back() == value.front())
            return false;
    }
    return true;
}

// The pairs the file itself names, so the roads are compared on values that exist.
std::vector<std::pair<std::string, std::string>> NamedPairs(std::string_view text)
{
    std::vector<std::pair<std::string, std::string>> pairs;
    std::string section;
    for (std::string_view line : Lines(text)) {
        const std::string_view t = Blankless(line);
        if (t.size() >= 2 && t.front() == '[' && t.back() == ']') {
            section.assign(t.substr(1, t.size() - 2));
            continue;
        }
        if (!t.empty() && pairs.size() < 24)
            pairs.emplace_back(section, std::string(t.substr(0, t.find('='))));
    }
    return pairs;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::TailReader in(data, size);
    const std::string section(in.Bytes(in.Byte() % 24));
    const std::string key(in.Bytes(in.Byte() % 24));
    const std::string_view text = in.Rest();
    if (text.size() >= kLargeFile)
        return -1;

    // One long line before any section: it sends the file to the other road and is part
    // of no section on either.
    static const std::string padding = std::string(kLargeFile, 'p') + "\r\n";
    const std::string padded = padding + std::string(text);
    const std::string small = fuzz::WriteScratchFile("small.ini", text);
    const std::string large = fuzz::WriteScratchFile("large.ini", padded);

    auto pairs = NamedPairs(text);
    pairs.emplace_back(section, key);
    const bool compare = Plain(text);

    // A fresh reader each time: a rewritten file of the same size may keep its stamp.
    test::FakePlatform platform;
    ProfileFiles profiles(platform);
    for (const auto& [s, k] : pairs) {
        const std::string first = profiles.GetINIString(s, k, small);
        const std::string second = profiles.GetINIString(s, k, large);
        Require(first.size() <= 254 && second.size() <= 255, "values are cut");
        if (compare && !Blankless(k).empty())
            Require(first == second, "both roads give the same value", "[" + s + "] " + k);
    }
    const auto numbersSmall = profiles.NumberedSections(small, "Model");
    const auto numbersLarge = profiles.NumberedSections(large, "Model");
    Require(numbersSmall.has_value() && numbersLarge.has_value(), "a readable file has sections");
    Require(std::is_sorted(numbersSmall->begin(), numbersSmall->end()), "numbers ascend");
    if (compare)
        Require(*numbersSmall == *numbersLarge, "both roads number the same sections");
    // Reading is all either road does: no message for a file that is there.
    Require(platform.messages.empty() ||
                std::all_of(platform.messages.begin(), platform.messages.end(),
                            [](const MessageBox& m) { return m.text == "GetElement:  6 - 0"; }),
            "no message but the walk's range message");
    return 0;
}
