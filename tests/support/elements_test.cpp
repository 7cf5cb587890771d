#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "support/elements.h"
#include "support/system.h"

namespace tos {
namespace {

const std::vector<std::string> kNone;
const std::vector<std::string> kRange{"GetElement:  6 - 0"};

TEST(GetElement, WalksToTheIndexWithSixteenBitPositions)
{
    const std::string far(32767, 'x');
    // clang-format off
    const struct {
        std::string text, delim; int index; std::string want; const std::vector<std::string>& shown;
    } rows[] = {
        {"a|b|c", "|", 0, "a", kNone}, {"a|b|c", "|", 2, "c", kNone}, {"a|b|c", "|", 3, "", kNone},
        {"a||c",  "|", 1, "",  kNone}, {"a|b|",  "|", 2, "",  kNone}, {"a|b|",  "|", 3, "", kNone},
        {"",      "|", 0, "",  kNone}, {"",      "|", 2, "",  kNone}, {"abc", "|", 0, "abc", kNone},
        {"a|b|c", "|", -1, "", kNone}, {"x<>y<>z", "<>", 1, "y", kNone},
        {"a,,",   ",", 1, "",  kNone}, {"a,,",   ",", 2, "",  kNone}, {"a,,",   ",", 3, "", kNone},
        // The delimiter past 32,767 fails even though element 0 lies before it.
        {"ab" + far + "|z",    "|", 0, "",  kRange},  {far.substr(2) + "|z", "|", 1, "z", kNone},
        {far.substr(1) + "|z", "|", 0, far.substr(1), kNone},
        {far.substr(1) + "|z", "|", 1, "",  kRange},  // next start 32,768
        {"a|" + far,           "|", 1, far, kNone},   {"a|" + far + "|b", "|", 1, "", kRange},
        {"a",          far + "x",   0, "",  kRange},  // delimiter too long
    };
    // clang-format on
    for (const auto& r : rows) {
        test::FakePlatform platform;
        EXPECT_EQ(GetElement(platform, r.text, r.delim, Int16(r.index)), r.want) << r.index;
        EXPECT_EQ(platform.Texts(), r.shown) << r.text.substr(0, 9) << " " << r.index;
        for (const auto& m : platform.messages)
            EXPECT_EQ(m.title, kDefaultMessageTitle);
    }
}

TEST(GetNextElement, ScansWithAnEndMark)
{
    const std::string big = std::string(40000, 'a') + ",bcd";
    // clang-format off
    const struct {
        std::string text, delim; int start; std::vector<std::string> elements; std::vector<int> at;
    } rows[] = { // successive calls from start
        {"ab,cd,ef",      ",",    1,     {"ab", "cd", "ef"}, {4, 7, 8}},
        {"ab,c",          ",",    1,     {"ab", ""},   {4, 4}}, // one last character is unread
        {"ab,",           ",",    1,     {"ab", ""},   {3, 3}},
        {"",              ",",    1,     {""},         {1}},
        {"abc",           ",",    1,     {"abc", ""},  {3, 3}},
        {"a\r\nbb\r\nc", "\r\n", 1,     {"a", "bb"},  {4, 8}},
        {big,             ",",    40002, {"bcd"},      {40004}}, // no 16-bit limit
        {"a,b",           ",",    0,     {""},         {0}},     // fails and stays
    };
    // clang-format on
    test::FakePlatform platform;
    for (const auto& r : rows) {
        Int32 position = r.start;
        for (std::size_t i = 0; i < r.elements.size(); ++i) {
            EXPECT_EQ(GetNextElement(platform, r.text, r.delim, position), r.elements[i]);
            EXPECT_EQ(position.value(), r.at[i]) << r.text.substr(0, 9) << " call " << i;
        }
    }
    EXPECT_EQ(platform.Texts(), std::vector<std::string>{"GetNextElement:  5 0"});
}

struct PathRow {
    std::string path, name, base, extension;
};

TEST(PathParts, NameBaseAndExtension)
{
    // clang-format off
    const PathRow rows[] = {
        {"C:\\x\\y.ms",             "y.ms",       "y",     "ms"},
        {"\\\\server\\share\\y.ms", "y.ms",       "y",     "ms"},
        {"y.ms",                    "y.ms",       "y",     "ms"},
        {"C:\\x\\",                 "x",          "",      ""},
        {"  C:\\x\\a.b.max  ",      "a.b.max  ",  "a.b",   "max  "},
        {"C:name.ext",              "C:name.ext", "name",  "ext"},
        {"noext",                   "noext",      "noext", ""},
        {".hidden",                 ".hidden",    "",      "hidden"},
        {"C:\\a\\\\b\\c.txt",       "a",          "c",     ""},
        {"/a/b\\c.d",               "c.d",        "c",     "d"},
    };
    // Where "/" is the separator it counts as "\\"; on Windows it is an ordinary character.
    const PathRow slashRows[] = {
        {"/home/u/",                "u",          "",      ""},
        {"//server/share/y.ms",     "y.ms",       "y",     "ms"},
        {"/a//b/c.d",               "",           "c",     ""},
    };
    const PathRow windowsSlashRows[] = {
        {"/home/u/",                "/home/u/",   "/home/u/",  ""},
        {"//server/share/y.ms",     "//server/share/y.ms", "//server/share/y", "ms"},
        {"/a//b/c.d",               "/a//b/c.d",  "/a//b/c",   "d"},
    };
    // clang-format on
    test::FakePlatform platform;
    std::vector<PathRow> all(std::begin(rows), std::end(rows));
    if (kPathSeparator == '/')
        all.insert(all.end(), std::begin(slashRows), std::end(slashRows));
    else
        all.insert(all.end(), std::begin(windowsSlashRows), std::end(windowsSlashRows));
    for (const auto& r : all) {
        EXPECT_EQ(GetFileName(platform, r.path), r.name) << r.path;
        EXPECT_EQ(GetBaseName(platform, r.path), r.base) << r.path;
        EXPECT_EQ(GetFileExtension(platform, r.path), r.extension) << r.path;
    }
    EXPECT_TRUE(platform.messages.empty());
}

} // namespace
} // namespace tos
