#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "support/profile.h"
#include "support/system.h"

namespace tos {
namespace {

constexpr std::size_t kSmall = 65534; // largest size of the first road
constexpr std::size_t kLarge = 65535; // smallest size of the own road

// body behind a padding section, so that the whole file has exactly size bytes.
std::string Sized(const std::string& body, std::size_t size, const std::string& eol = "\r\n")
{
    const std::string head = "[Pad]" + eol + "P=";
    const std::string tail = eol + body;
    return head + std::string(size - head.size() - tail.size(), 'x') + tail;
}

const std::string kBody = "[Sec]\r\n Key = \"Value\" \r\nA=b=c\r\nQ='quoted'\r\nTab\t=t\r\n"
                          "Lit=NotFound\r\nLong=" +
                          std::string(300, 'L') +
                          "\r\n[Tail] ; note\r\nT=1\r\n[Dup]\r\nD=first\r\n[DUP]\r\nD=second\r\n"
                          "E=only in second\r\n[Last]\r\nZ=9";

class Profile : public ::testing::Test {
protected:
    test::ScratchDir dir;
    test::FakePlatform platform;
    ProfileFiles profiles{platform};
};

TEST_F(Profile, TheTwoRoadsReadValuesTheirOwnWay)
{
    const std::string small = dir.Write("small.scn", Sized(kBody, kSmall));
    const std::string large = dir.Write("large.scn", Sized(kBody, kLarge));
    ASSERT_EQ(std::filesystem::file_size(large), kLarge);
    // clang-format off
    const struct { const char *section, *key; std::string firstRoad, ownRoad; } rows[] = {
        {"Sec",     "Key",     "Value",                 " \"Value\" "},
        {" sec ",   " KEY ",   "Value",                 " \"Value\" "},
        {"Sec",     "A",       "b=c",                   "b"},
        {"Sec",     "Q",       "quoted",                "'quoted'"},
        {"Sec",     "Tab",     "t",                     ""},
        {"Sec",     "Lit",     "",                      ""},
        {"Sec",     "Long",    std::string(254, 'L'),   std::string(255, 'L')},
        {"NoSec",   "Key",     "",                      ""},
        {"Tail",    "T",       "1",                     ""},
        {"Dup",     "D",       "first",                 "first"},
        {"Dup",     "E",       "",                      ""},
        {"Last",    "Z",       "9",                     "9"},
    };
    // clang-format on
    for (const auto& r : rows) {
        EXPECT_EQ(profiles.GetINIString(r.section, r.key, small), r.firstRoad) << r.key;
        EXPECT_EQ(profiles.GetINIString(r.section, r.key, large), r.ownRoad) << r.key;
    }
    // Only the first road knows other line ends.
    for (const std::string eol : {"\n", "\r"}) {
        const std::string body = "[S]" + eol + "K=v" + eol;
        dir.Write("small.scn", Sized(body, kSmall, eol));
        dir.Write("large.scn", Sized(body, kLarge, eol));
        profiles.FlushProfileFile(small);
        EXPECT_EQ(profiles.GetINIString("S", "K", small), "v");
        EXPECT_EQ(profiles.GetINIString("S", "K", large), "");
    }
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(Profile, AChangedFileIsReadAgain)
{
    auto write = [&](const char* name, const std::string& text, auto when) {
        std::filesystem::last_write_time(dir.Write(name, text), when);
    };
    const std::string large = dir.Write("large.scn", Sized("[S]\r\nK=old", kLarge));
    const std::string other = dir.Write("other.ini", "[S]\r\nK=other\r\n");
    const auto when = std::filesystem::last_write_time(large) + std::chrono::seconds(1);
    EXPECT_EQ(profiles.GetINIString("S", "K", large), "old");
    // A new time of last change is seen at once after a flush, which forgets the look at
    // the file taken a moment ago.
    write("large.scn", Sized("[S]\r\nK=new", kLarge), when);
    profiles.FlushProfileFile(large);
    EXPECT_EQ(profiles.GetINIString("S", "K", large), "new");
    // Same length, same time: the held copy stands, also after a flush.
    write("large.scn", Sized("[S]\r\nK=NEW", kLarge), when);
    EXPECT_EQ(profiles.GetINIString("S", "K", other), "other");
    EXPECT_EQ(profiles.GetINIString("S", "K", large), "new");
    profiles.FlushProfileFile(large);
    EXPECT_EQ(profiles.GetINIString("S", "K", large), "new");
    // Touched, it is loaded anew by the next fresh look; reading another file drops the last.
    std::filesystem::last_write_time(large, when + std::chrono::seconds(1));
    EXPECT_EQ(profiles.GetINIString("S", "K", other), "other");
    EXPECT_EQ(profiles.GetINIString("S", "K", large), "NEW");
    // The first road's parsed copy goes with a flush. Windows keeps its copy by rules of
    // its own, which the Windows build's library cannot hold the time still for.
    write("other.ini", "[S]\r\nK=OTHER\r\n", std::filesystem::last_write_time(other));
    if (kPathSeparator == '/') {
        EXPECT_EQ(profiles.GetINIString("S", "K", other), "other");
    }
    profiles.FlushProfileFile(other);
    EXPECT_EQ(profiles.GetINIString("S", "K", other), "OTHER");
}

TEST_F(Profile, AMissingFileAndALongLineShowTheirMessages)
{
    const std::string missing = dir.File("gone.scn");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(profiles.GetINIString("S", "K", missing), "");
    std::vector<std::string> want(3, "Unexpected error in GetINIString for file: " + missing +
                                         "  \nFile not found ( 53)");
    // A line with "=" past 32,767 characters fails in the element walk, and the read goes on.
    const std::string body = "[S]\r\nK" + std::string(40000, 'x') + "=1\r\nQ=2\r\n";
    EXPECT_EQ(profiles.GetINIString("S", "Q", dir.Write("large.scn", Sized(body, 70000))), "2");
    want.push_back("GetElement:  6 - 0");
    EXPECT_EQ(platform.Texts(), want);
}

TEST_F(Profile, NumberedSectionsFollowEachRoadsMatching)
{
    const std::string body = "[Model7]\r\nA=1\r\n[model1]\r\n[Model007]\r\n[Model 3]\r\n"
                             "[ModelX]\r\n[Model0]\r\n[Model-5]\r\n[Model2147483648]\r\n"
                             "[Model2147483647]\r\n[MODEL1]\r\n[Model12] ; note\r\n"
                             "[ Model4 ]\r\n[Modelo]\r\n";
    const std::string small = dir.Write("small.scn", Sized(body, kSmall));
    const std::string large = dir.Write("large.scn", Sized(body, kLarge));
    using Numbers = std::vector<std::int32_t>;
    // Windows reads small files itself; Wine's reader also takes "[ Model4 ]" as Model4.
    const Numbers smallNumbers = kPathSeparator == '/' ? Numbers{1, 7, 12, 2147483647}
                                                       : Numbers{1, 4, 7, 12, 2147483647};
    EXPECT_EQ(profiles.NumberedSections(small, "Model"), smallNumbers);
    EXPECT_EQ(profiles.NumberedSections(large, "Model"), (Numbers{1, 7, 2147483647}));
    EXPECT_EQ(profiles.NumberedSections(large, "  MODEL "), (Numbers{3}));
    EXPECT_EQ(profiles.NumberedSections(dir.File("gone.scn"), "Model"), std::nullopt);
    // What it finds is what a read finds.
    EXPECT_EQ(profiles.GetINIString("Model7", "A", large), "1");

    // A walk gives what reads by name give: from the copy it shares, read again and
    // walked again when the file changes.
    ProfileFiles sharing{platform, profiles};
    using Values = std::vector<std::string>;
    const auto walk = [&](ProfileFiles& reader) {
        Values values;
        reader.ForEachNumberedValue(large, "Model", 7, "A",
                                    [&](std::int32_t n, std::string_view v, std::uint32_t) {
                                        values.push_back(std::to_string(n) + "=" + std::string(v));
                                    });
        return values;
    };
    EXPECT_EQ(walk(profiles), (Values{"1=", "7=1"}));
    EXPECT_EQ(walk(sharing), (Values{"1=", "7=1"}));
    const auto when = std::filesystem::last_write_time(large) + std::chrono::seconds(1);
    dir.Write("large.scn", Sized("[Model7]\r\nA=2\r\n[Model3]\r\nA=3\r\n", kLarge));
    std::filesystem::last_write_time(large, when);
    sharing.ForgetLastLook();
    EXPECT_EQ(walk(sharing), (Values{"3=3", "7=2"}));
    profiles.ForgetLastLook();
    EXPECT_EQ(walk(profiles), (Values{"3=3", "7=2"}));
}

} // namespace
} // namespace tos
