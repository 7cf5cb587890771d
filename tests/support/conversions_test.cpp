#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <optional>
#include <string>

#include "support/conversions.h"

namespace tos {
namespace {

// The text body gives, or "fails N" when it fails.
std::string Outcome(auto&& body)
{
    std::string out;
    if (auto f = Trap([&] { out = body(); }))
        return "fails " + std::to_string(f->Number());
    return out;
}

TEST(TextToNumber, ReadsTheLongestNumericPrefixInEveryCLocale)
{
    const std::string zeros(400, '0');
    // The value read, in the shortest text that reads back as the same double.
    auto read = [](const std::string& text) {
        return Outcome([&] {
            char buf[32];
            return std::string(buf, std::to_chars(buf, buf + 32, TextToNumber(text)).ptr);
        });
    };
    // clang-format off
    const struct { std::string text; const char* value; } rows[] = {
        {"",       "0"},    {"   ",         "0"},     {"abc",      "0"},      {"-",          "0"},
        {".",      "0"},    {"+.",          "0"},     {"12abc",    "12"},     {"12,5",       "12"},
        {"1.5E3",  "1500"}, {"1.5d3",       "1500"},  {"2e",       "2"},      {"2e+",        "2"},
        {"2ex5",   "2"},    {" - 1 2 . 5 ", "-12.5"}, {"\t7\n8",   "78"},     {"1.2.3",      "1.2"},
        {"+.5",    "0.5"},  {"5.",          "5"},     {"--5",      "0"},      {"3\r4",       "3"},
        {"0.1",    "0.1"},  {"E5",          "0"},     {"-2.5e-1x", "-0.25"},  {"&HFF",       "255"},
        {"&hffff", "-1"},   {"&H0000FFFF",  "-1"},    {"&H10000",  "65536"},  {"&HFFFFFFFF", "-1"},
        {"&O17",   "15"},   {"&o177777",    "-1"},    {"&O8",      "0"},      {"& H 1 F",    "31"},
        {"&H",     "0"},    {"&X12",        "0"},     {"4e-320",   "4e-320"}, {"0e999999",   "0"},
        {"1e-400", "0"},      {"0." + zeros + "7e9", "0"},     {"-1000.5e-99999999999", "-0"},
        {"&H80000000", "-2147483648"}, {"1.7976931348623157e308", "1.7976931348623157e+308"},
        {"17976931348623157" + zeros.substr(0, 292),             "1.7976931348623157e+308"},
        {"1e309", "fails 6"}, {"-2.5e400", "fails 6"},         {"1e99999999999999", "fails 6"},
        {"-0", "-0"}, {"+-5", "0"}, {"1" + zeros, "fails 6"}, {"-0." + zeros + "1", "-0"},
        {"&H100000000", "fails 6"}, {"&O77777777777", "fails 6"}, {"1" + zeros + "e-10", "fails 6"},
    };
    // clang-format on
    // A desktop toolkit may switch the C library to the user's locale, where the decimal
    // mark can be a comma; the reader must not notice.
    for (const char* locale : {"C", "de_DE.UTF-8"}) {
        if (std::setlocale(LC_ALL, locale) == nullptr)
            continue;
        for (const auto& r : rows)
            EXPECT_EQ(read(r.text), r.value) << r.text << " " << locale;
    }
    std::setlocale(LC_ALL, "C");
}

TEST(Rounding, HalfEvenAgainstHalfAwayFromZero)
{
    // even: RoundHalfEven at the places; text: FormatPattern, which rounds halves away from zero.
    // clang-format off
    const struct { double value; int places; double even; const char *pattern, *text; } rows[] = {
        {0.5,        0, 0,    "0",        "1"},        {1.5,       0, 2,    "0",        "2"},
        {-2.5,       0, -2,   "0",        "-3"},       {1234.5,    0, 1234, "000",      "1235"},
        {1235.5,     0, 1236, "00",       "1236"},     {7,         0, 7,    "000",      "007"},
        {1.5,        6, 1.5,  "0.000000", "1.500000"}, {0.0000005, 6, 0,    "0.000000", "0.000001"},
        {-0.0000004, 6, -0.0, "0.000000", "0.000000"}, {-0.4,      0, -0.0, "0",        "0"},
        {9.9999995,  6, 10,   "0.000000", "10.000000"}, {2.5,       0, 2,    "0",        "3"},
        {-999.9996,  3, -1000,      "0.000000",   "-999.999600"},
        {1e20,       0, 1e20,       "0",          "100000000000000000000"},
        {0.123456785, 8, 0.12345678, "0.00000000", "0.12345679"},
    };
    // clang-format on
    for (const auto& r : rows) {
        EXPECT_EQ(RoundHalfEven(r.value, r.places), r.even) << r.value;
        EXPECT_EQ(FormatPattern(r.value, r.pattern), r.text) << r.value << " " << r.pattern;
    }
}

TEST(NumberToText, FifteenDigitsPlainOrExponent)
{
    // clang-format off
    const struct { double value; const char* text; } rows[] = {
        {100,               "100"},                  {0.5,                "0.5"},
        {-1.25,             "-1.25"},                {1.0 / 3,            "0.333333333333333"},
        {1.0 / 24,          "4.16666666666667E-02"}, {0.0625,             "0.0625"},
        {1.0 / 86400,       "1.15740740740741E-05"}, {0.00001,            "0.00001"},
        {1e14,              "100000000000000"},      {1e15,               "1E+15"},
        {1.5e-20,           "1.5E-20"},              {-0.0,               "0"},
        {123456789012345.6, "123456789012346"},      {999999999999999.5,  "1E+15"},
        {1e100,             "1E+100"},               {1.2345678901234567, "1.23456789012346"},
        {5e-324,            "4.94065645841247E-324"}, {0.1 + 0.2,         "0.3"},
    };
    // clang-format on
    for (const auto& r : rows)
        EXPECT_EQ(NumberToText(r.value), r.text) << r.text;
    EXPECT_EQ(NumberToText(0.1), NumberToText(std::nextafter(0.1, 1.0)));
}

TEST(TextParts, CaseTrimCutsAndIntegers)
{
    EXPECT_EQ(UpperCase("abz\xE0\xF7\xFE\xFF\x9A\x9C\x9E\xDF\xB5{"),
              "ABZ\xC0\xF7\xDE\x9F\x8A\x8C\x8E\xDF\xB5{");
    EXPECT_TRUE(EqualsIgnoringCase("Model\xE9", "MODEL\xC9"));
    EXPECT_FALSE(EqualsIgnoringCase("Model7", "Model07"));
    // Integer conversions round half to even first and test the range after.
    auto i16 = [](double v) { return Outcome([&] { return IntegerToText(ToInt16(v).value()); }); };
    auto i32 = [](double v) { return Outcome([&] { return IntegerToText(ToInt32(v).value()); }); };
    // clang-format off
    const struct { std::string got; const char* want; } rows[] = {
        {TrimBlanks("  \ta b\t  "), "\ta b\t"},   {TrimLeftBlanks("  a  "), "a  "},
        {TrimRightBlanks("  a  "),   "  a"},        {IntegerToText(-32768),   "-32768"},
        {SignedIntegerText(6),       " 6"},         {SignedIntegerText(0),    " 0"},
        {SignedIntegerText(-1),      "-1"},         {LeftPart("abc", 2),      "ab"},
        {LeftPart("abc", 9),         "abc"},        {RightPart("abc", 2),     "bc"},
        {RightPart("abc", 9),        "abc"},        {MiddlePart("abcdef", 2, 3), "bcd"},
        {MiddlePart("abc", 2, 9),    "bc"},         {MiddlePart("abc", 4, 1), ""},
        {Outcome([] { return LeftPart("abc", -1); }),      "fails 5"},
        {Outcome([] { return RightPart("abc", -1); }),     "fails 5"},
        {Outcome([] { return MiddlePart("abc", 0, 1); }),  "fails 5"},
        {Outcome([] { return MiddlePart("abc", 1, -1); }), "fails 5"},
        {i16(32766.5),  "32766"},   {i16(32767.5),  "fails 6"}, {i32(32767.5),      "32768"},
        {i16(-32768.5), "-32768"},  {i16(-32769.5), "fails 6"}, {i32(-32769.5),     "-32770"},
        {i32(2147483647.5), "fails 6"}, {i32(2147483647.4), "2147483647"},
        {i32(-2147483648.5), "-2147483648"}, {NumberToText(FloorNumber(-0.5)), "-1"},
    };
    // clang-format on
    for (const auto& r : rows)
        EXPECT_EQ(r.got, r.want);
}

} // namespace
} // namespace tos
