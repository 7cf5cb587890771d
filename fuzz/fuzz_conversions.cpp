// Text and numbers: TextToNumber on any bytes, then the conversions on what it read and
// on any double the input's first eight bytes spell.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "fuzz_support.h"
#include "support/conversions.h"
#include "support/failure.h"

namespace {

using namespace tos;
using tos::fuzz::Require;

struct PatternShape {
    const char* pattern;
    std::size_t whole;
    std::size_t decimals;
};
constexpr PatternShape kPatterns[] = {
    {"0", 1, 0}, {"00", 2, 0}, {"000", 3, 0}, {"0.000000", 1, 6}, {"0.00000000", 1, 8},
};

bool AllDigits(std::string_view s)
{
    return !s.empty() && s.find_first_not_of("0123456789") == std::string_view::npos;
}

void CheckPattern(double x, const PatternShape& p)
{
    std::string text;
    const auto failure = Trap([&] { text = FormatPattern(x, p.pattern); });
    Require(!failure, "FormatPattern does not fail", p.pattern);
    std::string_view t = text;
    const bool minus = !t.empty() && t.front() == '-';
    if (minus)
        t.remove_prefix(1);
    const std::size_t point = t.find('.');
    const std::string_view whole = t.substr(0, point);
    Require(AllDigits(whole) && whole.size() >= p.whole, "FormatPattern whole digits", text);
    if (p.decimals == 0) {
        Require(point == std::string_view::npos, "FormatPattern without decimals", text);
    } else {
        Require(point != std::string_view::npos && AllDigits(t.substr(point + 1)) &&
                    t.size() - point - 1 == p.decimals,
                "FormatPattern exact decimals", text);
    }
    Require(!minus || t.find_first_not_of("0.") != std::string_view::npos,
            "no minus sign in front of a zero", text);
    if (std::fabs(x) < 1e14) {
        // Rounded at the pattern's decimals, so it lies within half a last place.
        const double back = TextToNumber(text);
        const double step = std::pow(10.0, -static_cast<double>(p.decimals));
        Require(std::fabs(back - x) <= step / 2 + std::fabs(x) * 1e-14 + 1e-300,
                "FormatPattern rounds to the nearest", text);
    }
}

// The digits worked out from the value's binary form agree with the C library's print,
// which rounds the same exact value half to even.
void CheckDigitsAgainstPrint(double x)
{
    if (x == 0.0 || !std::isfinite(x))
        return;
    for (const int count : {1, 3, 6, 8, 15, 17}) {
        char printed[64];
        std::snprintf(printed, sizeof printed, "%.*e", count - 1, std::fabs(x));
        std::string digits;
        const char* at = printed;
        for (; *at != 'e'; ++at)
            if (*at != '.')
                digits += *at;
        const LeadingDigits d = RoundedDigits(x, count);
        Require(std::string_view(d.digits, static_cast<std::size_t>(count)) == digits &&
                    d.exponent == std::atoi(at + 1),
                "RoundedDigits as printed", printed);
        char general[64];
        std::snprintf(general, sizeof general, "%.*g", count, x);
        Require(GeneralText(x, count) == general, "GeneralText as printed", general);
    }
}

void CheckNumber(double x)
{
    CheckDigitsAgainstPrint(x);
    const std::string text = NumberToText(x);
    Require(!text.empty() && text.size() <= 24, "NumberToText is short", text);
    const double ax = std::fabs(x);
    if (std::isnormal(x) && ax < 1e308) {
        double back = 0;
        const auto failure = Trap([&] { back = TextToNumber(text); });
        Require(!failure, "the text of a normal number reads back", text);
        Require(NumberToText(back) == text, "NumberToText(TextToNumber(NumberToText(x)))", text);
        Require(std::fabs(back - x) <= ax * 1e-14, "15 digits hold the value", text);
    }
    for (const PatternShape& p : kPatterns)
        CheckPattern(x, p);

    for (int decimals = 0; decimals <= 8; ++decimals) {
        double r = 0;
        const auto failure = Trap([&] { r = RoundHalfEven(x, decimals); });
        if (failure) {
            Require(failure->Number() == err::Overflow && ax > 1e299,
                    "RoundHalfEven fails only when scaling overflows", text);
            continue;
        }
        Require(std::isfinite(r), "RoundHalfEven is finite", text);
        Require(std::fabs(r - x) <= 0.5 * std::pow(10.0, -decimals) + ax * 1e-15 + 1e-300,
                "RoundHalfEven rounds to the nearest", text);
    }

    const double nearest = std::nearbyint(x);
    const auto in16 = Trap([&] {
        const double v = ToInt16(x).value();
        Require(v == nearest, "ToInt16 rounds half to even", text);
    });
    Require(in16.has_value() == (nearest < -32768 || nearest > 32767), "ToInt16 range", text);
    Require(!in16 || in16->Number() == err::Overflow, "ToInt16 fails with 6", text);
    const auto in32 = Trap([&] {
        const double v = ToInt32(x).value();
        Require(v == nearest, "ToInt32 rounds half to even", text);
    });
    Require(in32.has_value() == (nearest < -2147483648.0 || nearest > 2147483647.0),
            "ToInt32 range", text);
    Require(!in32 || in32->Number() == err::Overflow, "ToInt32 fails with 6", text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    double x = 0;
    const auto failure = Trap([&] { x = TextToNumber(text); });
    if (failure)
        Require(failure->Number() == err::Overflow, "TextToNumber fails only with 6");
    else
        CheckNumber(x);
    // The plain form (a sign, digits and one point) is read exactly as the C library reads it.
    const std::string_view unsigned_ =
        !text.empty() && (text[0] == '-' || text[0] == '+') ? text.substr(1) : text;
    if (!failure && unsigned_.find_first_not_of("0123456789.") == std::string_view::npos &&
        std::count(unsigned_.begin(), unsigned_.end(), '.') <= 1 &&
        unsigned_.find_first_of("0123456789") != std::string_view::npos) {
        const std::string plain(text);
        const double expected = std::strtod(plain.c_str(), nullptr);
        Require(std::memcmp(&x, &expected, sizeof x) == 0, "TextToNumber reads plain text exactly",
                plain);
    }

    if (size >= sizeof(double)) {
        double raw = 0;
        std::memcpy(&raw, data, sizeof raw);
        if (std::isfinite(raw))
            CheckNumber(raw);
    }

    const std::string upper = UpperCase(text);
    Require(upper.size() == size && UpperCase(upper) == upper, "UpperCase keeps length, settles");
    const std::string trimmed = TrimBlanks(text);
    Require(text.find(trimmed) != std::string_view::npos &&
                (trimmed.empty() || (trimmed.front() != ' ' && trimmed.back() != ' ')),
            "TrimBlanks cuts blanks off the ends only");
    return 0;
}
