#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "cli_run.h"
#include "common/scratch.h"

namespace tos {
namespace {

TEST(CombineCommand, JoinsScriptsAsTheWindowDoes)
{
    test::ScratchDir programDir, work;
    programDir.Write("TolvarineObjectScripter.ini", "[MiscStockObjects]\r\nTotalItems=0\r\n");
    const std::string a = work.Write("a.ms", "a1\r\na2"), b = work.Write("b.ms", "b1\rb2\n");
    const std::string locked = work.Write("locked.ms", "keep"), out = work.File("out.ms");
    std::filesystem::permissions(locked, std::filesystem::perms(0444));
    const std::string lockedError = "TolvarineObjectScripter: Unexpected error in btnSaveAs \\n\\n "
                                    "75 - Path/File access error\n";
    // clang-format off
    const std::tuple<std::vector<std::string>, int, std::optional<std::string>, std::string> cases[] = {
        // after "combine"         status  written (none: no file)                      error text, or part of a usage error
        {{out, a, b},              0,      "a1\r\na2\r\n\r\n\r\nb1\r\nb2\n\r\n\r\n\r\n",  ""},
        {{out, "", a},             0,      "a1\r\na2\r\n\r\n\r\n",                      ""}, // "" is a cancel
        {{"", a},                  0,      std::nullopt,                                ""},
        {{locked, a},              1,      "keep",                                      lockedError},
        {{out},                    2,      std::nullopt,                                "INPUT is required"},
        {{out, work.File("x.ms")}, 2,      std::nullopt,                                "No such script file"},
    };
    // clang-format on
    for (const auto& [args, status, written, err] : cases) {
        std::filesystem::remove(out);
        std::vector<std::string> all{"combine"};
        all.insert(all.end(), args.begin(), args.end());
        const test::CliResult run = test::RunCli(all, programDir.Path().string());
        EXPECT_EQ(run.status, status);
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(status == 2 ? run.err.find(err) != std::string::npos : run.err == err)
            << run.err;
        if (written)
            EXPECT_EQ(test::ReadBytes(args[0]), *written);
        else
            EXPECT_FALSE(std::filesystem::exists(out));
    }
}

} // namespace
} // namespace tos
