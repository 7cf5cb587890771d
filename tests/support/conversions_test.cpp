#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "support/conversions.h"

namespace tos {
namespace {

std::optional<int> FailureOf(auto&& body)
{
    auto f = Trap(body);
    return f ? std::optional<int>(f->Number()) : std::nullopt;
}

TEST(TextToNumber, ReadsTheLongestNumericPrefix)
{
    struct Row {
        const char* text;
        double value;
    };
    // clang-format off
    const Row rows[] = {
        {"",               0},      {"   ",          0},       {"abc",        0},
        {"-",              0},      {".",            0},       {"+.",         0},
        {"12abc",          12},     {"12,5",         12},      {"1.5E3",      1500},
        {"1.5d3",          1500},   {"2e",           2},       {"2e+",        2},
        {"2ex5",           2},      {" - 1 2 . 5 ",  -12.5},   {"\t7\n8",     78},
        {"1.2.3",          1.2},    {"+.5",          0.5},     {"5.",         5},
        {"1e-2",           0.01},   {"--5",          0},       {"3\r4",       3},
        {"0.1",            0.1},    {"E5",           0},       {"-2.5e-1x",  -0.25},
        {"&HFF",           255},    {"&hffff",       -1},      {"&H0000FFFF", -1},
        {"&H10000",        65536},  {"&HFFFFFFFF",   -1},      {"&H80000000", -2147483648.0},
        {"&O17",           15},     {"&o177777",     -1},      {"&O8",        0},
        {"& H 1 F",        31},     {"&H",           0},       {"&X12",       0},
        {"1e-400",         0},      {"4e-320",       4e-320},  {"0e999999",   0},
        {"1.7976931348623157e308", 1.7976931348623157e308},
    };
    // clang-format on
    for (const auto& r : rows)
        EXPECT_EQ(TextToNumber(r.text), r.value) << r.text;
    EXPECT_EQ(TextToNumber("17976931348623157" + std::string(292, '0')), 1.7976931348623157e308);
}

TEST(TextToNumber, RangeIsTheSameInEveryCLocale)
{
    const std::string zeros(400, '0');
    // A desktop toolkit may switch the C library to the user's locale, where the decimal
    // mark can be a comma; the reader must not notice.
    for (const char* locale : {"C", "de_DE.UTF-8"}) {
        if (std::setlocale(LC_ALL, locale) == nullptr)
            continue;
        for (const std::string& text :
             std::vector<std::string>{"1e309", "-2.5e400", "1e99999999999999", "&H100000000",
                                      "&O77777777777", "1" + zeros + "e-10"})
            EXPECT_EQ(FailureOf([&] { TextToNumber(text); }), err::Overflow) << text;
        for (const std::string& text :
             std::vector<std::string>{"1.5e-400", "-1000.5e-99999999999", "0." + zeros + "7e9"})
            EXPECT_EQ(TextToNumber(text), 0) << text << " " << locale;
    }
    std::setlocale(LC_ALL, "C");
}

TEST(Rounding, HalfEvenAgainstHalfAwayFromZero)
{
    struct Row {
        double value;
        int decimals;
        double even;         // RoundHalfEven
        const char* pattern; // FormatPattern rounds halves away from zero
        const char* formatted;
    };
    // clang-format off
    const Row rows[] = {
        {0.5,       0, 0,      "0",          "1"},
        {1.5,       0, 2,      "0",          "2"},
        {2.5,       0, 2,      "0",          "3"},
        {-2.5,      0, -2,     "0",          "-3"},
        {3.5,       0, 4,      "000",        "004"},
        {1234.5,    0, 1234,   "000",        "1235"},
        {1235.5,    0, 1236,   "00",         "1236"},
        {7,         0, 7,      "000",        "007"},
        {1.5,       6, 1.5,    "0.000000",   "1.500000"},
        {0.0000005, 6, 0,      "0.000000",   "0.000001"},
        {-0.0000004,6, -0.0,   "0.000000",   "0.000000"},
        {-0.4,      0, -0.0,   "0",          "0"},
        {2.675,     2, 2.68,   "0.00000000", "2.67500000"},
        {1.0000000005, 9, 1.0, "0.00000000", "1.00000000"},
        {0.123456785,  8, 0.12345678, "0.00000000", "0.12345679"},
        {9.9999995, 6, 10,     "0.000000",   "10.000000"},
        {-999.9996, 3, -1000,  "0.000000",   "-999.999600"},
        {1e20,      0, 1e20,   "0",          "100000000000000000000"},
        {0,         0, 0,      "0.00000000", "0.00000000"},
    };
    // clang-format on
    for (const auto& r : rows) {
        EXPECT_EQ(RoundHalfEven(r.value, r.decimals), r.even) << r.value;
        EXPECT_EQ(FormatPattern(r.value, r.pattern), r.formatted) << r.value << " " << r.pattern;
    }
}

TEST(Rounding, IntegerConversionsTestTheRangeAfterRounding)
{
    struct Row {
        double value;
        std::optional<int> int16; // nullopt: failure 6
        std::optional<long long> int32;
    };
    // clang-format off
    const Row rows[] = {
        {32766.5,       32766,        32766},
        {32767.5,       std::nullopt, 32768},
        {-32768.5,      -32768,       -32768},
        {-32769.5,      std::nullopt, -32770},
        {2147483647.4,  std::nullopt, 2147483647},
        {2147483647.5,  std::nullopt, std::nullopt},
        {-2147483648.5, std::nullopt, -2147483648LL},
        {0.5,           0,            0},
        {-1.5,          -2,           -2},
    };
    // clang-format on
    for (const auto& r : rows) {
        if (r.int16)
            EXPECT_EQ(ToInt16(r.value).value(), *r.int16) << r.value;
        else
            EXPECT_EQ(FailureOf([&] { ToInt16(r.value); }), err::Overflow) << r.value;
        if (r.int32)
            EXPECT_EQ(ToInt32(r.value).value(), *r.int32) << r.value;
        else
            EXPECT_EQ(FailureOf([&] { ToInt32(r.value); }), err::Overflow) << r.value;
    }
    EXPECT_EQ(FloorNumber(-0.5), -1);
    EXPECT_EQ(FloorNumber(2.9), 2);
}

TEST(NumberToText, FifteenDigitsPlainOrExponent)
{
    struct Row {
        double value;
        const char* text;
    };
    // clang-format off
    const Row rows[] = {
        {100,             "100"},                  {0.5,           "0.5"},
        {-1.25,           "-1.25"},                {1.0 / 3,       "0.333333333333333"},
        {1.0 / 24,        "4.16666666666667E-02"}, {0.0625,        "0.0625"},
        {1.0 / 86400,     "1.15740740740741E-05"}, {0.00001,       "0.00001"},
        {1e14,            "100000000000000"},      {1e15,          "1E+15"},
        {1.5e-20,         "1.5E-20"},              {-0.0,          "0"},
        {0,               "0"},                    {123456789012345.6, "123456789012346"},
        {999999999999999.5, "1E+15"},              {1.2345678901234567, "1.23456789012346"},
        {1e100,           "1E+100"},               {-2.5e-300,     "-2.5E-300"},
        {0.000012345,     "0.000012345"},          {0.1 + 0.2,     "0.3"},
        {5e-324,          "4.94065645841247E-324"}, {1234.5,       "1234.5"},
    };
    // clang-format on
    for (const auto& r : rows)
        EXPECT_EQ(NumberToText(r.value), r.text) << r.text;
    // Neighbours that differ only past the 15th digit read the same.
    EXPECT_EQ(NumberToText(0.1), NumberToText(std::nextafter(0.1, 1.0)));
}

TEST(IntegerText, SignColumn)
{
    EXPECT_EQ(IntegerToText(-32768), "-32768");
    EXPECT_EQ(IntegerToText(0), "0");
    EXPECT_EQ(SignedIntegerText(6), " 6");
    EXPECT_EQ(SignedIntegerText(0), " 0");
    EXPECT_EQ(SignedIntegerText(-1), "-1");
}

TEST(TextParts, CaseTrimAndCuts)
{
    EXPECT_EQ(UpperCase("abz\xE0\xF7\xFE\xFF\x9A\x9C\x9E\xDF\xB5{"),
              "ABZ\xC0\xF7\xDE\x9F\x8A\x8C\x8E\xDF\xB5{");
    EXPECT_TRUE(EqualsIgnoringCase("Model\xE9", "MODEL\xC9"));
    EXPECT_FALSE(EqualsIgnoringCase("Model7", "Model07"));
    EXPECT_EQ(TrimBlanks("  \ta b\t  "), "\ta b\t");
    EXPECT_EQ(TrimLeftBlanks("  a  "), "a  ");
    EXPECT_EQ(TrimRightBlanks("  a  "), "  a");

    struct Row {
        std::string got;
        const char* want;
    };
    // clang-format off
    const Row rows[] = {
        {LeftPart("abc", 2),          "ab"},   {LeftPart("abc", 9),          "abc"},
        {RightPart("abc", 2),         "bc"},   {RightPart("abc", 9),         "abc"},
        {MiddlePart("abcdef", 2, 3),  "bcd"},  {MiddlePart("abc", 2, 9),     "bc"},
        {MiddlePart("abc", 4, 1),     ""},     {LeftPart("abc", 0),          ""},
    };
    // clang-format on
    for (const auto& r : rows)
        EXPECT_EQ(r.got, r.want);
    EXPECT_EQ(FailureOf([] { LeftPart("abc", -1); }), err::InvalidCall);
    EXPECT_EQ(FailureOf([] { RightPart("abc", -1); }), err::InvalidCall);
    EXPECT_EQ(FailureOf([] { MiddlePart("abc", 0, 1); }), err::InvalidCall);
    EXPECT_EQ(FailureOf([] { MiddlePart("abc", 1, -1); }), err::InvalidCall);
}

} // namespace
} // namespace tos
