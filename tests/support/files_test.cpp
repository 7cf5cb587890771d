#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "common/scratch.h"
#include "support/failure.h"
#include "support/files.h"
#include "support/system.h"

namespace tos {
namespace {

TEST(Files, FailureNumbersAUserMeets)
{
    test::ScratchDir dir;
    const std::string locked = dir.Write("locked.ms", "locked\r\n");
    std::filesystem::permissions(locked, std::filesystem::perms(0444));
    std::filesystem::create_directory(dir.File("folder"));
    const std::string nul = dir.File(std::string("a\0b.ms", 6));
    // clang-format off
    const struct { const char* what; std::function<void()> body; int failure; } cases[] = {
        {"read missing file",       [&] { ReadWholeFile(dir.File("none.scn")); },           53},
        {"read in missing folder",  [&] { ReadWholeFile(dir.File("none/a.scn")); },         76},
        {"read a folder",           [&] { ReadWholeFile(dir.File("folder")); },             75},
        {"facts of missing file",   [&] { GetFileFacts(dir.File("none.scn")); },            53},
        {"write in missing folder", [&] { WriteLinesCrLf(dir.File("none/a.ms"), {"a"}); },  76},
        {"write a read-only file",  [&] { WriteLinesCrLf(locked, {"a"}); },                 75},
        {"write over a folder",     [&] { WriteLinesCrLf(dir.File("folder"), {"a"}); },     75},
        {"write to a full disk",    [&] { WriteLinesCrLf("/dev/full", {"a"}); },            61},
        // The system would take the name up to the NUL for the whole name.
        {"read a name with NUL",    [&] { ReadWholeFile(nul); },                            52},
        {"write a name with NUL",   [&] { WriteLinesCrLf(nul, {"a"}); },                    52},
        {"facts of name with NUL",  [&] { GetFileFacts(nul); },                             52},
    };
    // clang-format on
    for (const auto& c : cases)
        EXPECT_EQ(Trap(c.body).value_or(Failure(0)).Number(), c.failure) << c.what;
    EXPECT_EQ(test::ReadBytes(locked), "locked\r\n");
    EXPECT_FALSE(std::filesystem::exists(dir.File("a")));
    EXPECT_FALSE(FileExists(nul));
}

// A file replaced whole or not at all: on a failure the old content stays and no
// other file is left in the folder.
TEST(Files, ReplacesAFileWholeOrLeavesItAsItWas)
{
    test::ScratchDir dir;
    const std::string locked = dir.Write("locked.tosbatch", "old");
    std::filesystem::permissions(locked, std::filesystem::perms(0444));
    std::filesystem::create_directory(dir.File("folder"));
    // clang-format off
    const struct { const char* what; std::string path; int failure; std::string after; } cases[] = {
        {"a new file",           dir.File("new.svg"),          0,  "new\r\n"},
        {"over an older one",    dir.Write("old.svg", "older"), 0, "new\r\n"},
        {"a read-only file",     locked,                        75, "old"},
        {"a folder",             dir.File("folder"),            75, ""},
        {"in a missing folder",  dir.File("none/a.svg"),        76, ""},
    };
    // clang-format on
    for (const auto& c : cases) {
        const auto failure = Trap([&] { ReplaceFileAtomically(c.path, CrLfText({"new"})); });
        EXPECT_EQ(failure.value_or(Failure(0)).Number(), c.failure) << c.what;
        if (FileExists(c.path)) {
            EXPECT_EQ(test::ReadBytes(c.path), c.after) << c.what;
        }
    }
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(dir.Path()))
        ++files;
    EXPECT_EQ(files, 4u); // locked, folder, new and old: no file half made
}

TEST(Files, WritesRowsWithCrLfAndStampsEachChange)
{
    test::ScratchDir dir;
    const std::string path = dir.Write("out.ms", "previous, longer content");
    std::vector<std::string> rows{"first", "", "last \xE9"};
    std::string want = "first\r\n\r\nlast \xE9\r\n";
    for (int i = 0; i < 20000; ++i) {
        rows.push_back("row " + std::to_string(i));
        want += rows.back() + "\r\n";
    }
    WriteLinesCrLf(path, rows);
    EXPECT_EQ(ReadWholeFile(path), want);
    EXPECT_TRUE(FileExists(path));
    EXPECT_FALSE(FileExists(dir.Path().string()));

    // The stamp moves with the time of last change, even by a millisecond, and with the size.
    // The Windows build's library sets the time to the second only, so it steps by one.
    const auto step = std::chrono::milliseconds(kPathSeparator == '/' ? 1 : 1000);
    const auto t0 = std::filesystem::last_write_time(path);
    std::filesystem::last_write_time(path, t0);
    const auto first = GetFileFacts(path).stamp;
    std::filesystem::last_write_time(path, t0 + step);
    EXPECT_NE(GetFileFacts(path).stamp, first);
    std::filesystem::last_write_time(path, t0);
    EXPECT_EQ(GetFileFacts(path).stamp, first);
    WriteLinesCrLf(path, {});
    std::filesystem::last_write_time(path, t0);
    EXPECT_NE(GetFileFacts(path).stamp, first);
    EXPECT_EQ(ReadWholeFile(path), "");
    // clang-format off
    for (auto [p, folder] : {std::pair{"/home/u/a.prj", "/home/u"}, {"/a.prj", "/"}, {"a.prj", ""}}) {
        std::string given = p, want = folder;
        std::replace(given.begin(), given.end(), '/', kPathSeparator);
        std::replace(want.begin(), want.end(), '/', kPathSeparator);
        EXPECT_EQ(FolderOfPath(given), want) << given;
    }
    if (kPathSeparator == '\\') {
        EXPECT_EQ(FolderOfPath("C:\\a.prj"), "C:\\");
    }
    // clang-format on
}

} // namespace
} // namespace tos
