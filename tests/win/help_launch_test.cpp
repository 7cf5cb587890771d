#include <gtest/gtest.h>

#include <string>

#include "common/scratch.h"
#include "win/platform/help_launch.h"

namespace tos::win {
namespace {

TEST(LaunchDocument, FailureIsReportedAsFalse)
{
    test::ScratchDir dir;
    struct Row {
        const char* name;
        std::string file;
    };
    const Row rows[] = {
        {.name = "missing file", .file = dir.File("TOS_Help.html")},
        {.name = "missing folder", .file = dir.File("gone\\TOS_Help.html")},
        {.name = "no handler for the type", .file = dir.Write("help.tosnohandler", "x")},
    };
    for (const Row& row : rows)
        EXPECT_FALSE(LaunchDocument(row.file)) << row.name;
}

} // namespace
} // namespace tos::win
