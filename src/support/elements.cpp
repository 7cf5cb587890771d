#include "support/elements.h"

#include <limits>

#include "support/case_blind.h"
#include "support/conversions.h"
#include "support/element_view.h"
#include "support/failure.h"
#include "support/platform.h"

namespace tos {

namespace {

constexpr long long kMax16 = std::numeric_limits<std::int16_t>::max();
constexpr long long kMax32 = std::numeric_limits<std::int32_t>::max();

// The 1-based position of delim in text at or after start, 0 when there is none. A start
// behind the end finds nothing; an empty delim is found where the search starts.
long long FindFrom(std::string_view text, std::string_view delim, long long start)
{
    if (start > static_cast<long long>(text.size()))
        return 0;
    if (delim.empty())
        return start;
    const std::size_t at = text.find(delim, static_cast<std::size_t>(start - 1));
    return at == std::string_view::npos ? 0 : static_cast<long long>(at) + 1;
}

// Characters from a 1-based start, at most count of them; "" when start is behind the end.
std::string_view Middle(std::string_view text, long long start, long long count)
{
    if (start > static_cast<long long>(text.size()))
        return {};
    return text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(count));
}

constexpr long long kToEnd = std::numeric_limits<long long>::max();

bool IsSeparator(char c)
{
    return c == '\\' || (kPathSeparator == '/' && c == '/');
}

// The message boxes of the two walks' traps.
void ShowElementFailure(Platform& platform, int number)
{
    platform.ShowMessage({"GetElement: " + SignedIntegerText(number) + " - 0"});
}

void ShowNextElementFailure(Platform& platform, int number)
{
    platform.ShowMessage({"GetNextElement: " + SignedIntegerText(number) + " 0"});
}

} // namespace

ElementView ElementAt(std::string_view text, std::string_view delim, int index)
{
    // A text this short keeps every value of the walk in range, so no failure is possible
    // and the walk is a plain split.
    if (delim.size() == 1 && text.size() < static_cast<std::size_t>(kMax16)) {
        std::size_t from = 0;
        for (int n = 0;; ++n) {
            const std::size_t at = text.find(delim.front(), from);
            if (n == index)
                return {text.substr(from, at == std::string_view::npos ? at : at - from), 0};
            if (at == std::string_view::npos)
                return {};
            from = at + 1;
        }
    }
    // Every value of the walk is 16-bit and range-tested as it is computed.
    const long long d = static_cast<long long>(delim.size());
    if (d > kMax16)
        return {{}, err::Overflow};
    long long p = 1;
    long long n = 0;
    for (;;) {
        const long long f = FindFrom(text, delim, p);
        if (f > kMax16)
            return {{}, err::Overflow};
        if (n == index)
            return {Middle(text, p, f > 0 ? f - p : kToEnd), 0};
        if (f == 0)
            return {};
        if (++n > kMax16 || f + d > kMax16)
            return {{}, err::Overflow};
        p = f + d;
    }
}

ElementView NextElementAt(std::string_view text, std::string_view delim, std::int32_t& position)
{
    const long long length = static_cast<long long>(text.size());
    if (length > kMax32)
        return {{}, err::Overflow};
    if (length == position || length == 0)
        return {};
    const long long s = position;
    if (s < 1)
        return {{}, err::InvalidCall};
    long long f = FindFrom(text, delim, s);
    std::string_view result;
    if (f != 0) {
        result = Middle(text, s, f - s);
        f += static_cast<long long>(delim.size());
        if (f > kMax32)
            return {{}, err::Overflow};
    } else {
        result = Middle(text, s, kToEnd);
    }
    position = static_cast<std::int32_t>(f == 0 || f > length ? length : f);
    return {result, 0};
}

std::string_view ElementOrMessage(Platform& platform, std::string_view text, std::string_view delim,
                                  int index)
{
    const ElementView e = ElementAt(text, delim, index);
    if (e.failure != 0)
        ShowElementFailure(platform, e.failure);
    return e.value;
}

std::string_view NextElementOrMessage(Platform& platform, std::string_view text,
                                      std::string_view delim, std::int32_t& position)
{
    const ElementView e = NextElementAt(text, delim, position);
    if (e.failure != 0)
        ShowNextElementFailure(platform, e.failure);
    return e.value;
}

std::string GetElement(Platform& platform, std::string_view text, std::string_view delim,
                       Int16 index)
{
    std::string result;
    auto failure = Trap([&] {
        const ElementView e = ElementAt(text, delim, index.value());
        if (e.failure != 0)
            Fail(e.failure);
        result.assign(e.value);
    });
    if (failure) {
        ShowElementFailure(platform, failure->Number());
        return "";
    }
    return result;
}

std::string GetNextElement(Platform& platform, std::string_view text, std::string_view delim,
                           Int32& position)
{
    std::string result;
    auto failure = Trap([&] {
        std::int32_t at = position.value();
        const ElementView e = NextElementAt(text, delim, at);
        if (e.failure != 0)
            Fail(e.failure);
        result.assign(e.value);
        position = Int32(at);
    });
    if (failure) {
        ShowNextElementFailure(platform, failure->Number());
        return "";
    }
    return result;
}

std::string GetFileName(Platform& platform, std::string_view path)
{
    std::string result;
    Trap([&] {
        // "/" counts as "\" here, so the walk below sees one separator only.
        std::string unified;
        std::string_view work = path;
        if (kPathSeparator == '/' && path.find('/') != std::string_view::npos) {
            unified.assign(path);
            for (char& c : unified)
                if (c == '/')
                    c = '\\';
            work = unified;
        }
        if (work.find("\\\\") != std::string_view::npos)
            work.remove_prefix(2);
        Int16 n = !work.empty() && work.front() == '\\' ? 1 : 0;
        while (!ElementOrMessage(platform, work, "\\", n.value()).empty())
            ++n;
        result.assign(ElementOrMessage(platform, work, "\\", (n - Int16(1)).value()));
    });
    return result;
}

std::string GetBaseName(Platform&, std::string_view path)
{
    std::string result;
    Trap([&] {
        std::string_view t = TrimmedView(path);
        if (const auto colon = t.find(':'); colon != std::string_view::npos)
            t.remove_prefix(colon + 1);
        for (std::size_t i = t.size(); i > 0; --i) {
            if (IsSeparator(t[i - 1])) {
                t.remove_prefix(i);
                break;
            }
        }
        if (const auto dot = t.rfind('.'); dot != std::string_view::npos)
            t = t.substr(0, dot);
        result.assign(t);
    });
    return result;
}

std::string GetFileExtension(Platform& platform, std::string_view path)
{
    std::string result;
    Trap([&] {
        const std::string name = GetFileName(platform, path);
        const std::string base = GetBaseName(platform, name);
        result.assign(ElementOrMessage(platform, name, base + ".", 1));
    });
    return result;
}

} // namespace tos
