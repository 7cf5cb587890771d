#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "support/elements.h"

namespace tos {
namespace {

TEST(GetElement, WalksToTheIndex)
{
    struct Row {
        std::string text;
        std::string delim;
        int index;
        std::string want;
    };
    // clang-format off
    const Row rows[] = {
        {"a|b|c",   "|",   0, "a"},  {"a|b|c",   "|",   2, "c"},  {"a|b|c",   "|",   3, ""},
        {"a||c",    "|",   1, ""},   {"a|b|",    "|",   2, ""},   {"a|b|",    "|",   3, ""},
        {"",        "|",   0, ""},   {"",        "|",   2, ""},   {"abc",     "|",   0, "abc"},
        {"a|b|c",   "|",  -1, ""},   {"x<>y<>z", "<>",  1, "y"},  {"x<>y<>z", "<",   1, ">y"},
        {"aXbxc",   "x",   1, "c"},  {"1,2,3",   ",",   1, "2"},
    };
    // clang-format on
    test::FakePlatform platform;
    for (const auto& r : rows)
        EXPECT_EQ(GetElement(platform, r.text, r.delim, Int16(r.index)), r.want)
            << r.text << " " << r.index;
    EXPECT_TRUE(platform.messages.empty());
}

TEST(GetElement, SixteenBitPositionsFailWithTheirMessage)
{
    const std::string far(32767, 'x');
    struct Row {
        std::string text;
        std::string delim;
        int index;
        std::string want; // "" with a message when failing
        bool fails;
    };
    // clang-format off
    const Row rows[] = {
        // The delimiter past 32,767 fails even though element 0 lies before it.
        {"ab" + far + "|z",            "|",              0, "",  true},
        {far.substr(2) + "|z",         "|",              1, "z", false},
        {far.substr(1) + "|z",         "|",              0, far.substr(1), false},
        {far.substr(1) + "|z",         "|",              1, "",  true},   // next start 32,768
        {"a|" + far,                   "|",              1, far.substr(0, 32767), false},
        {"a|" + far + "|b",            "|",              1, "",  true},
        {"a",                          far + "x",        0, "",  true},   // delimiter too long
    };
    // clang-format on
    for (const auto& r : rows) {
        test::FakePlatform platform;
        EXPECT_EQ(GetElement(platform, r.text, r.delim, Int16(r.index)), r.want);
        if (r.fails) {
            ASSERT_EQ(platform.Texts(), std::vector<std::string>{"GetElement:  6 - 0"});
            EXPECT_EQ(platform.messages[0].title, kDefaultMessageTitle);
        } else {
            EXPECT_TRUE(platform.messages.empty());
        }
    }
}

TEST(GetNextElement, ScansWithAnEndMark)
{
    struct Row {
        std::string text;
        std::vector<std::string> elements; // successive calls from position 1
        std::vector<int> positions;
    };
    // clang-format off
    const Row rows[] = {
        {"ab,cd,ef", {"ab", "cd", "ef"}, {4, 7, 8}},
        {"ab,c",     {"ab", ""},         {4, 4}},     // a last one-character element is never read
        {"ab,",      {"ab", ""},         {3, 3}},
        {"",         {""},               {1}},
        {"abc",      {"abc", ""},        {3, 3}},
        {"a\r\nbb\r\n", {"a", "bb"},     {4, 7}},
    };
    // clang-format on
    test::FakePlatform platform;
    for (const auto& r : rows) {
        Int32 position = 1;
        const std::string delim = r.text.find('\r') != std::string::npos ? "\r\n" : ",";
        for (std::size_t i = 0; i < r.elements.size(); ++i) {
            EXPECT_EQ(GetNextElement(platform, r.text, delim, position), r.elements[i]) << r.text;
            EXPECT_EQ(position.value(), r.positions[i]) << r.text << " call " << i;
        }
    }
    EXPECT_TRUE(platform.messages.empty());

    // No 16-bit limit; a position below 1 fails and stays where it was.
    const std::string big = std::string(40000, 'a') + "," + "bcd";
    Int32 position = 40002;
    EXPECT_EQ(GetNextElement(platform, big, ",", position), "bcd");
    EXPECT_EQ(position.value(), 40004);
    position = 0;
    EXPECT_EQ(GetNextElement(platform, "a,b", ",", position), "");
    EXPECT_EQ(position.value(), 0);
    EXPECT_EQ(platform.Texts(), std::vector<std::string>{"GetNextElement:  5 0"});
}

TEST(PathParts, NameBaseAndExtension)
{
    struct Row {
        std::string path;
        std::string name;
        std::string base;
        std::string extension;
    };
    // clang-format off
    const Row rows[] = {
        {"C:\\x\\y.ms",               "y.ms",    "y",       "ms"},
        {"\\\\server\\share\\y.ms",   "y.ms",    "y",       "ms"},
        {"y.ms",                      "y.ms",    "y",       "ms"},
        {"C:\\x\\",                   "x",       "",        ""},
        {"  C:\\x\\a.b.max  ",        "a.b.max  ", "a.b",   "max  "},
        {"C:name.ext",                "C:name.ext", "name", "ext"},
        {"noext",                     "noext",   "noext",   ""},
        {".hidden",                   ".hidden", "",        "hidden"},
        {"C:\\x\\a.b.SLT",            "a.b.SLT", "a.b",     "SLT"},
        {"C:\\a\\\\b\\c.txt",         "a",       "c",       ""},
        {"/home/u/scene.scn",         "scene.scn", "scene", "scn"},
        {"/home/u/",                  "u",       "",        ""},
        {"//server/share/y.ms",       "y.ms",    "y",       "ms"},
        {"/a/b\\c.d",                 "c.d",     "c",       "d"},
        {"/a//b/c.d",                 "",        "c",       ""},
        {"",                          "",        "",        ""},
    };
    // clang-format on
    test::FakePlatform platform;
    for (const auto& r : rows) {
        EXPECT_EQ(GetFileName(platform, r.path), r.name) << r.path;
        EXPECT_EQ(GetBaseName(platform, r.path), r.base) << r.path;
        EXPECT_EQ(GetFileExtension(platform, r.path), r.extension) << r.path;
    }
    EXPECT_TRUE(platform.messages.empty());
}

} // namespace
} // namespace tos
