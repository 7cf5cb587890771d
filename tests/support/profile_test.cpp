#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "support/profile.h"

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

const std::string kBody = "[Sec]\r\n"
                          " Key = \"Value\" \r\n"
                          "A=b=c\r\n"
                          "Q='quoted'\r\n"
                          "Tab\t=t\r\n"
                          "Lit=NotFound\r\n"
                          "Long=" +
                          std::string(300, 'L') +
                          "\r\n"
                          "[Tail] ; note\r\n"
                          "T=1\r\n"
                          "[Dup]\r\n"
                          "D=first\r\n"
                          "[DUP]\r\n"
                          "D=second\r\n"
                          "E=only in second\r\n"
                          "[Last]\r\n"
                          "Z=9";

TEST(Profile, TheTwoRoadsReadValuesTheirOwnWay)
{
    test::ScratchDir dir;
    const std::string small = dir.Write("small.scn", Sized(kBody, kSmall));
    const std::string large = dir.Write("large.scn", Sized(kBody, kLarge));
    ASSERT_EQ(std::filesystem::file_size(small), kSmall);
    ASSERT_EQ(std::filesystem::file_size(large), kLarge);

    struct Row {
        const char* section;
        const char* key;
        std::string firstRoad;
        std::string ownRoad;
    };
    // clang-format off
    const Row rows[] = {
        {"Sec",     "Key",     "Value",                 " \"Value\" "},
        {" sec ",   " KEY ",   "Value",                 " \"Value\" "},
        {"Sec",     "A",       "b=c",                   "b"},
        {"Sec",     "Q",       "quoted",                "'quoted'"},
        {"Sec",     "Tab",     "t",                     ""},
        {"Sec",     "Lit",     "",                      ""},
        {"Sec",     "Long",    std::string(254, 'L'),   std::string(255, 'L')},
        {"Sec",     "None",    "",                      ""},
        {"NoSec",   "Key",     "",                      ""},
        {"Tail",    "T",       "1",                     ""},
        {"Dup",     "D",       "first",                 "first"},
        {"Dup",     "E",       "",                      ""},
        {"Last",    "Z",       "9",                     "9"},
    };
    // clang-format on
    test::FakePlatform platform;
    ProfileFiles profiles(platform);
    for (const auto& r : rows) {
        EXPECT_EQ(profiles.GetINIString(r.section, r.key, small), r.firstRoad)
            << r.section << "/" << r.key;
        EXPECT_EQ(profiles.GetINIString(r.section, r.key, large), r.ownRoad)
            << r.section << "/" << r.key;
    }
    EXPECT_TRUE(platform.messages.empty());
}

TEST(Profile, OnlyTheFirstRoadKnowsOtherLineEnds)
{
    test::ScratchDir dir;
    test::FakePlatform platform;
    ProfileFiles profiles(platform);
    for (const std::string eol : {"\n", "\r"}) {
        const std::string body = "[S]" + eol + "K=v" + eol;
        const std::string small = dir.Write("small.scn", Sized(body, kSmall, eol));
        const std::string large = dir.Write("large.scn", Sized(body, kLarge, eol));
        profiles.FlushProfileFile(small);
        profiles.FlushProfileFile(large);
        EXPECT_EQ(profiles.GetINIString("S", "K", small), "v");
        EXPECT_EQ(profiles.GetINIString("S", "K", large), "");
    }
}

TEST(Profile, AChangedLargeFileIsReadAgain)
{
    test::ScratchDir dir;
    test::FakePlatform platform;
    ProfileFiles profiles(platform);
    const std::string large = dir.Write("large.scn", Sized("[S]\r\nK=old", kLarge));
    const std::string other = dir.Write("other.ini", "[S]\r\nK=other\r\n");
    EXPECT_EQ(profiles.GetINIString("S", "K", large), "old");
    const auto when = std::filesystem::last_write_time(large);

    // A new time of last change is seen by the next look at the file.
    dir.Write("large.scn", Sized("[S]\r\nK=new", kLarge));
    std::filesystem::last_write_time(large, when + std::chrono::seconds(1));
    EXPECT_EQ(profiles.GetINIString("S", "K", other), "other");
    EXPECT_EQ(profiles.GetINIString("S", "K", large), "new");

    // Same length, same time: the held copy stands, also after a flush.
    dir.Write("large.scn", Sized("[S]\r\nK=NEW", kLarge));
    std::filesystem::last_write_time(large, when + std::chrono::seconds(1));
    EXPECT_EQ(profiles.GetINIString("S", "K", other), "other");
    EXPECT_EQ(profiles.GetINIString("S", "K", large), "new");
    profiles.FlushProfileFile(large);
    EXPECT_EQ(profiles.GetINIString("S", "K", large), "new");

    // The same holds for the first road's parsed copy.
    const auto otherWhen = std::filesystem::last_write_time(other);
    dir.Write("other.ini", "[S]\r\nK=OTHER\r\n");
    std::filesystem::last_write_time(other, otherWhen);
    EXPECT_EQ(profiles.GetINIString("S", "K", other), "other");
    profiles.FlushProfileFile(other);
    EXPECT_EQ(profiles.GetINIString("S", "K", other), "OTHER");
    EXPECT_TRUE(platform.messages.empty());
}

TEST(Profile, AMissingFileShowsItsMessageAtEveryRead)
{
    test::ScratchDir dir;
    test::FakePlatform platform;
    ProfileFiles profiles(platform);
    const std::string missing = dir.File("gone.scn");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(profiles.GetINIString("S", "K", missing), "");
    const std::string text =
        "Unexpected error in GetINIString for file: " + missing + "  \nFile not found ( 53)";
    EXPECT_EQ(platform.Texts(), std::vector<std::string>(3, text));
}

TEST(Profile, ALineBeyondSixteenBitPositionsShowsTheElementFailure)
{
    test::ScratchDir dir;
    test::FakePlatform platform;
    ProfileFiles profiles(platform);
    const std::string body = "[S]\r\nK" + std::string(40000, 'x') + "=1\r\nQ=2\r\n";
    const std::string large = dir.Write("large.scn", Sized(body, 70000));
    EXPECT_EQ(profiles.GetINIString("S", "Q", large), "2");
    EXPECT_EQ(platform.Texts(), std::vector<std::string>{"GetElement:  6 - 0"});
}

TEST(Profile, NumberedSectionsFollowEachRoadsMatching)
{
    test::ScratchDir dir;
    test::FakePlatform platform;
    ProfileFiles profiles(platform);
    const std::string body = "[Model7]\r\nA=1\r\n[model1]\r\n[Model007]\r\n[Model 3]\r\n"
                             "[ModelX]\r\n[Model0]\r\n[Model-5]\r\n[Model2147483648]\r\n"
                             "[Model2147483647]\r\n[MODEL1]\r\n[Model12] ; note\r\n"
                             "[ Model4 ]\r\n[Modelo]\r\n";
    const std::string small = dir.Write("small.scn", Sized(body, kSmall));
    const std::string large = dir.Write("large.scn", Sized(body, kLarge));

    EXPECT_EQ(profiles.NumberedSections(small, "Model"),
              (std::vector<std::int32_t>{1, 7, 12, 2147483647}));
    EXPECT_EQ(profiles.NumberedSections(large, "Model"),
              (std::vector<std::int32_t>{1, 7, 2147483647}));
    EXPECT_EQ(profiles.NumberedSections(large, "  MODEL "), (std::vector<std::int32_t>{3}));
    EXPECT_EQ(profiles.NumberedSections(dir.File("gone.scn"), "Model"), std::nullopt);
    // What it finds is what a read finds.
    EXPECT_EQ(profiles.GetINIString("Model7", "A", large), "1");
    EXPECT_TRUE(platform.messages.empty());
}

} // namespace
} // namespace tos
