#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/checked.h"

namespace tos {

// Text is bytes, one character per byte (Windows-1252).

// Longest numeric prefix; blanks, tabs and line feeds skipped anywhere; "&H"/"&O"
// forms; never fails on malformed text, failure 6 beyond the double range.
double TextToNumber(std::string_view text);

// Multiplies by 10^decimals, rounds half to even, divides back (checked arithmetic).
double RoundHalfEven(double value, int decimals);

// Round half to even, then the range test (failure 6).
Int16 ToInt16(double value);
Int32 ToInt32(double value);

double FloorNumber(double value);

// Shortest plain form at 15 significant digits; exponent form past the limits.
std::string NumberToText(double value);
// The same text, appended to out.
void AppendNumberText(std::string& out, double value);

// The first `count` (1 to 17) significant digits of a finite value other than zero,
// correctly rounded, and the power of ten of the first; digits behind them are '0'.
struct LeadingDigits {
    char digits[17];
    int exponent;
};
LeadingDigits RoundedDigits(double value, int count);

// What printf's "%.<precision>g" writes in the C locale, precision 1 to 17.
std::string GeneralText(double value, int precision);

std::string IntegerToText(long long value);
// One blank in front of a value that is not negative: " 6", "-1".
std::string SignedIntegerText(long long value);

// Patterns "0", "00", "000", "0.000000", "0.00000000": minimum whole digits,
// exact decimals, half away from zero on the 15 significant digits.
std::string FormatPattern(double value, std::string_view pattern);
// The same text, appended to out.
void AppendPattern(std::string& out, double value, std::string_view pattern);

std::string UpperCase(std::string_view text);
std::string TrimBlanks(std::string_view text);
std::string TrimLeftBlanks(std::string_view text);
std::string TrimRightBlanks(std::string_view text);

// 1-based positions; a negative count or a position below 1 is failure 5.
std::string LeftPart(std::string_view text, long long count);
std::string RightPart(std::string_view text, long long count);
std::string MiddlePart(std::string_view text, long long start, long long count);

// The ordinary case-blind comparison: UpperCase of both sides equal.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

namespace detail {
extern const std::array<unsigned char, 256> kUpperBytes;
}

// The capital of one character, as UpperCase makes it.
inline char UpperChar(char c)
{
    return static_cast<char>(detail::kUpperBytes[static_cast<unsigned char>(c)]);
}

} // namespace tos
