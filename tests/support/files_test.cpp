#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "common/scratch.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {
namespace {

std::optional<int> FailureOf(auto&& body)
{
    auto f = Trap(body);
    return f ? std::optional<int>(f->Number()) : std::nullopt;
}

TEST(Files, FailureNumbersAUserMeets)
{
    test::ScratchDir dir;
    const std::string existing = dir.Write("old.ms", "keep\r\n");
    const std::string locked = dir.Write("locked.ms", "locked\r\n");
    std::filesystem::permissions(locked, std::filesystem::perms(0444));
    std::filesystem::create_directory(dir.File("folder"));
    const std::vector<std::string> rows{"a"};

    struct Row {
        const char* what;
        std::function<void()> body;
        int failure;
    };
    // clang-format off
    const Row rows_[] = {
        {"read missing file",      [&] { ReadWholeFile(dir.File("none.scn")); },          err::FileNotFound},
        {"read in missing folder", [&] { ReadWholeFile(dir.File("none/a.scn")); },        err::PathNotFound},
        {"read a folder",          [&] { ReadWholeFile(dir.File("folder")); },            err::PathFileAccess},
        {"length of missing file", [&] { FileLength(dir.File("none.scn")); },             err::FileNotFound},
        {"write in missing folder",[&] { WriteLinesCrLf(dir.File("none/a.ms"), rows); },  err::PathNotFound},
        {"write a read-only file", [&] { WriteLinesCrLf(locked, rows); },                 err::PathFileAccess},
        {"write over a folder",    [&] { WriteLinesCrLf(dir.File("folder"), rows); },     err::PathFileAccess},
    };
    // clang-format on
    for (const auto& r : rows_)
        EXPECT_EQ(FailureOf(r.body), r.failure) << r.what;
    EXPECT_EQ(test::ReadBytes(locked), "locked\r\n");
    EXPECT_EQ(test::ReadBytes(existing), "keep\r\n");
    if (std::filesystem::exists("/dev/full")) {
        EXPECT_EQ(FailureOf([&] { WriteLinesCrLf("/dev/full", rows); }), err::DiskFull);
    }
}

TEST(Files, WritesRowsWithCrLfAndReadsThemBack)
{
    test::ScratchDir dir;
    const std::string path = dir.Write("out.ms", "previous, longer content");
    std::vector<std::string> rows{"first", "", "last \xE9"};
    for (int i = 0; i < 20000; ++i)
        rows.push_back("row " + std::to_string(i));
    WriteLinesCrLf(path, rows);
    std::string want;
    for (const auto& r : rows)
        want += r + "\r\n";
    EXPECT_EQ(ReadWholeFile(path), want);
    EXPECT_EQ(FileLength(path), static_cast<std::int64_t>(want.size()));
    EXPECT_TRUE(FileExists(path));
    EXPECT_FALSE(FileExists(dir.Path().string()));

    WriteLinesCrLf(path, {});
    EXPECT_EQ(ReadWholeFile(path), "");
}

TEST(Files, StampFollowsTimeAndSize)
{
    test::ScratchDir dir;
    const std::string path = dir.Write("a.scn", "12345");
    const auto t0 = std::filesystem::last_write_time(path);
    const auto first = FileStamp(path);
    ASSERT_TRUE(first);
    std::filesystem::last_write_time(path, t0 + std::chrono::milliseconds(1));
    EXPECT_NE(FileStamp(path), first);
    std::filesystem::last_write_time(path, t0);
    EXPECT_EQ(FileStamp(path), first);
    dir.Write("a.scn", "123456");
    std::filesystem::last_write_time(path, t0);
    EXPECT_NE(FileStamp(path), first);
    EXPECT_EQ(FileStamp(dir.File("none")), std::nullopt);
}

TEST(Files, FolderOfPath)
{
    // clang-format off
    const std::pair<const char*, const char*> rows[] = {
        {"/home/u/a.prj", "/home/u"}, {"/a.prj", "/"}, {"/home/u/", "/home/u"}, {"a.prj", ""},
    };
    // clang-format on
    for (const auto& [path, folder] : rows)
        EXPECT_EQ(FolderOfPath(path), folder) << path;
}

} // namespace
} // namespace tos
