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
    std::filesystem::permissions(dir.File("closed"), std::filesystem::perms(0555));
    // clang-format off
    const struct { const char* what; std::function<void()> body; int failure; } cases[] = {
        // Neither a pipe nor an endless device may hold the program up.
        {"read a pipe",             [&] { ReadWholeFile(pipe); },                           75},
        {"read an endless device",  [&] { ReadWholeFile("/dev/zero"); },                    75},
        {"write a pipe",            [&] { WriteLinesCrLf(pipe, {"a"}); },                   75},
        // As for a read-only file, the super-user keeps out of a folder without write bits.
        {"write in a closed folder",[&] { WriteLinesCrLf(dir.File("closed/a.ms"), {"a"}); },75},
    };
    // clang-format on
    for (const auto& c : cases)
        EXPECT_EQ(Trap(c.body).value_or(Failure(0)).Number(), c.failure) << c.what;
    EXPECT_FALSE(std::filesystem::exists(dir.File("closed/a.ms")));
}

} // namespace
} // namespace tos
