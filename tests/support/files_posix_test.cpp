#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <sys/stat.h>

#include "common/scratch.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {
namespace {

// Things only a POSIX system puts where a file is expected.
TEST(FilesPosix, PipesDevicesAndClosedFoldersEndInAFailure)
{
    test::ScratchDir dir;
    const std::string pipe = dir.File("pipe.scn");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0644), 0);
    std::filesystem::create_directory(dir.File("closed"));
    const std::string kept = dir.Write("closed/kept.tosbatch", "kept");
    std::filesystem::permissions(dir.File("closed"), std::filesystem::perms(0555));
    // clang-format off
    const struct { const char* what; std::function<void()> body; int failure; } cases[] = {
        // Neither a pipe nor an endless device may hold the program up.
        {"read a pipe",             [&] { ReadWholeFile(pipe); },                           75},
        {"read an endless device",  [&] { ReadWholeFile("/dev/zero"); },                    75},
        {"write a pipe",            [&] { WriteLinesCrLf(pipe, {"a"}); },                   75},
        // As for a read-only file, the super-user keeps out of a folder without write bits.
        {"write in a closed folder",[&] { WriteLinesCrLf(dir.File("closed/a.ms"), {"a"}); },75},
        // A whole replacement never takes a device's or a closed folder's place.
        {"replace a full device",   [&] { ReplaceFileAtomically("/dev/full", "a"); },       75},
        {"replace a pipe",          [&] { ReplaceFileAtomically(pipe, "a"); },              75},
        {"replace in a closed folder", [&] { ReplaceFileAtomically(kept, "new"); },         75},
    };
    // clang-format on
    for (const auto& c : cases)
        EXPECT_EQ(Trap(c.body).value_or(Failure(0)).Number(), c.failure) << c.what;
    EXPECT_FALSE(std::filesystem::exists(dir.File("closed/a.ms")));
    EXPECT_EQ(test::ReadBytes(kept), "kept");
    struct stat st {};
    EXPECT_TRUE(::stat("/dev/full", &st) == 0 && S_ISCHR(st.st_mode));
    std::filesystem::permissions(dir.File("closed"), std::filesystem::perms::owner_all);
}

// A link keeps its place: the file it names gets the new content.
TEST(FilesPosix, ReplacingThroughALinkReplacesTheFileItNames)
{
    test::ScratchDir dir;
    const std::string file = dir.Write("real.tosbatch", "old");
    std::filesystem::create_symlink(file, dir.File("link.tosbatch"));
    ReplaceFileAtomically(dir.File("link.tosbatch"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(dir.File("link.tosbatch")));
    EXPECT_EQ(test::ReadBytes(file), "new");
}

} // namespace
} // namespace tos
