#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "common/scratch.h"

namespace tos {
namespace {

std::size_t FileCount(const std::filesystem::path& folder)
{
    std::size_t n = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        n += entry.is_regular_file() ? 1 : 0;
    return n;
}

TEST(CombineCommand, JoinsScriptsAsTheWindowDoes)
{
    test::ScratchDir programDir, work;
    programDir.Write("TolvarineObjectScripter.ini", "[MiscStockObjects]\r\nTotalItems=0\r\n");
    const std::string a = work.Write("a.ms", "a1\r\na2");
    const std::string b = work.Write("b.ms", "b1\rb2\n");
    const std::string locked = work.Write("locked.ms", "keep");
    std::filesystem::permissions(locked, std::filesystem::perms(0444));
    const std::string saveFailure = "TolvarineObjectScripter: Unexpected error in btnSaveAs \\n\\n";
    const std::string out = work.File("out.ms");

    struct Case {
        const char* name;
        std::vector<std::string> args; // after "combine"
        int status;
        std::optional<std::string> written; // nullopt: no file was made
        std::string err;                    // the whole error text, or a part of a usage error
    };
    // clang-format off
    const Case cases[] = {
        {"two scripts, new output",  {out, a, b},               0, "a1\r\na2\r\n\r\n\r\nb1\r\nb2\n\r\n\r\n\r\n", ""},
        {"same script twice",        {out, a, a},               0, "a1\r\na2\r\n\r\n\r\na1\r\na2\r\n\r\n\r\n",   ""},
        {"empty input is a cancel",  {out, "", a},              0, "a1\r\na2\r\n\r\n\r\n",                       ""},
        {"empty output is a cancel", {"", a},                   0, std::nullopt, ""},
        {"missing folder",           {work.File("no/x.ms"), a}, 1, std::nullopt, saveFailure + " 76 - Path not found\n"},
        {"read-only output",         {locked, a},               1, "keep",       saveFailure + " 75 - Path/File access error\n"},
        {"no input",                 {out},                     2, std::nullopt, "INPUT"},
        {"missing input",            {out, work.File("x.ms")},  2, std::nullopt, "No such script file"},
        {"unknown option",           {out, a, "--unknown"},     2, std::nullopt, "--unknown"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::filesystem::remove(out);
        const std::size_t filesBefore = FileCount(work.Path());
        std::vector<const char*> argv{"tos-cli", "combine"};
        for (const auto& arg : c.args)
            argv.push_back(arg.c_str());
        std::ostringstream stdOut, stdErr;
        const int status = cli::Run(static_cast<int>(argv.size()), argv.data(), stdOut, stdErr,
                                    programDir.Path().string());
        EXPECT_EQ(status, c.status);
        EXPECT_EQ(stdOut.str(), "");
        if (c.status == 2)
            EXPECT_NE(stdErr.str().find(c.err), std::string::npos) << stdErr.str();
        else
            EXPECT_EQ(stdErr.str(), c.err);
        if (c.written)
            EXPECT_EQ(test::ReadBytes(c.args[0]), *c.written);
        else
            EXPECT_EQ(FileCount(work.Path()), filesBefore);
    }
}

} // namespace
} // namespace tos
