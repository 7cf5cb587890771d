// The element walks and the path routines on any text, with the delimiters the program
// uses and one taken from the input.
#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "fuzz_support.h"
#include "support/element_view.h"
#include "support/elements.h"

namespace {

using namespace tos;
using tos::fuzz::Require;

constexpr std::size_t kMax16 = 32767;

// What GetElement gives for every index when no position passes 16 bits: the pieces
// between the delimiters, found left to right without overlap.
void CheckElements(test::FakePlatform& platform, std::string_view text, std::string_view delim,
                   int chosenIndex)
{
    platform.ClearMessages();
    if (delim.empty() || text.size() + delim.size() > kMax16) {
        // Only the shape of a failure can be checked here.
        const std::string e = GetElement(platform, text, delim, Int16::From(chosenIndex));
        Require(platform.messages.empty() ||
                    (e.empty() && platform.Texts().back() == "GetElement:  6 - 0"),
                "GetElement fails only with its range message");
        return;
    }
    std::vector<std::string_view> pieces;
    for (std::size_t at = 0;;) {
        const std::size_t f = text.find(delim, at);
        pieces.push_back(text.substr(at, f == std::string_view::npos ? f : f - at));
        if (f == std::string_view::npos)
            break;
        at = f + delim.size();
    }
    const int limit = static_cast<int>(std::min<std::size_t>(pieces.size(), 12));
    for (int i = -1; i <= limit; ++i) {
        const std::string e = GetElement(platform, text, delim, Int16::From(i));
        const bool inside = i >= 0 && static_cast<std::size_t>(i) < pieces.size();
        Require(e == (inside ? pieces[static_cast<std::size_t>(i)] : ""), "GetElement piece", e);
    }
    const std::string e = GetElement(platform, text, delim, Int16::From(chosenIndex));
    const bool inside = chosenIndex >= 0 && static_cast<std::size_t>(chosenIndex) < pieces.size();
    Require(e == (inside ? pieces[static_cast<std::size_t>(chosenIndex)] : ""), "GetElement", e);
    Require(platform.messages.empty(), "no message below 16 bits");
}

// A scan from position 1 moves forward at every step and ends.
void CheckScan(test::FakePlatform& platform, std::string_view text, std::string_view delim)
{
    platform.ClearMessages();
    const auto length = static_cast<std::int32_t>(text.size());
    Int32 position = 1;
    std::size_t steps = 0;
    while (position.value() < length) {
        const std::int32_t before = position.value();
        const std::string e = GetNextElement(platform, text, delim, position);
        Require(platform.messages.empty(), "GetNextElement does not fail in a scan");
        Require(text.substr(static_cast<std::size_t>(before - 1), e.size()) == e,
                "the element stands at the position");
        Require(delim.empty() || e.find(delim) == std::string::npos, "no delimiter inside");
        if (delim.empty())
            break; // an empty delimiter is found where the search starts: no step
        Require(position.value() > before, "the scan moves on");
        Require(++steps <= text.size() + 1, "the scan ends");
    }
    // The view form used by the profile reader gives the same steps.
    std::int32_t at = 1;
    Int32 checked = 1;
    for (int i = 0; i < 4 && at < length; ++i) {
        const ElementView v = NextElementAt(text, delim, at);
        const std::string e = GetNextElement(platform, text, delim, checked);
        Require(v.failure == 0 && v.value == e && at == checked.value(), "both scans agree");
    }
}

void CheckPaths(test::FakePlatform& platform, std::string_view path)
{
    platform.ClearMessages();
    std::string unified(path);
    for (char& c : unified)
        if (c == '/')
            c = '\\';
    const std::string name = GetFileName(platform, path);
    Require(unified.find(name) != std::string::npos && name.find('\\') == std::string::npos,
            "GetFileName is one piece of the path", name);
    const std::string base = GetBaseName(platform, path);
    Require(unified.find(base) != std::string::npos && base.find('\\') == std::string::npos,
            "GetBaseName is one piece of the path", base);
    const std::string extension = GetFileExtension(platform, path);
    Require(name.find(extension) != std::string::npos, "the extension stands in the name");
    // The path routines trap silently; the walks inside them may speak.
    for (const std::string& t : platform.Texts())
        Require(t == "GetElement:  6 - 0", "only the walk's range message", t);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static test::FakePlatform platform;
    fuzz::TailReader in(data, size);
    const auto low = in.Byte();
    const int index = static_cast<std::int16_t>(in.Byte() << 8 | low);
    const std::string delim(in.Bytes(in.Byte() % 6));
    const std::string_view text = in.Rest();

    for (std::string_view d :
         {std::string_view(delim), std::string_view("|"), std::string_view(","),
          std::string_view("\r\n"), std::string_view("_KV_"), std::string_view("#!#")}) {
        CheckElements(platform, text, d, index);
        CheckScan(platform, text, d);
    }
    CheckPaths(platform, text);
    return 0;
}
