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

struct Result {
    int status;
    std::string out;
    std::string err;
};

// Runs tos-cli in-process with the catalogue file in a folder of its own.
class CombineCommandTest : public ::testing::Test {
protected:
    CombineCommandTest()
    {
        programDir.Write("TolvarineObjectScripter.ini", "[MiscStockObjects]\r\nTotalItems=0\r\n");
    }

    Result Run(const std::vector<std::string>& args)
    {
        std::vector<const char*> argv{"tos-cli"};
        for (const auto& a : args)
            argv.push_back(a.c_str());
        std::ostringstream out, err;
        const int status = cli::Run(static_cast<int>(argv.size()), argv.data(), out, err,
                                    programDir.Path().string());
        return {status, out.str(), err.str()};
    }

    std::size_t WorkFileCount() const
    {
        std::size_t n = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(work.Path()))
            n += entry.is_regular_file() ? 1 : 0;
        return n;
    }

    test::ScratchDir programDir;
    test::ScratchDir work;
};

TEST_F(CombineCommandTest, JoinsScriptsAsTheWindowDoes)
{
    const std::string a = work.Write("a.ms", "a1\r\na2");
    const std::string b = work.Write("b.ms", "b1\rb2\n");
    const std::string locked = work.Write("locked.ms", "keep");
    std::filesystem::permissions(locked, std::filesystem::perms(0444));
    const std::string saveFailure = "TolvarineObjectScripter: Unexpected error in btnSaveAs \\n\\n";

    struct Case {
        const char* name;
        std::vector<std::string> args;
        std::string output; // the file the command writes to
        int status;
        std::optional<std::string> written; // nullopt: no file was made
        std::string err;
    };
    // clang-format off
    const Case cases[] = {
        {"two scripts, new output", {work.File("new.ms"), a, b},  work.File("new.ms"),
         0, "a1\r\na2\r\n\r\n\r\nb1\r\nb2\n\r\n\r\n\r\n", ""},
        {"same script twice",       {work.File("twice.ms"), a, a}, work.File("twice.ms"),
         0, "a1\r\na2\r\n\r\n\r\na1\r\na2\r\n\r\n\r\n", ""},
        {"empty input is a cancel", {work.File("one.ms"), "", a},  work.File("one.ms"),
         0, "a1\r\na2\r\n\r\n\r\n", ""},
        {"empty output is a cancel", {"", a},                      "",
         0, std::nullopt, ""},
        {"missing folder",          {work.File("no/x.ms"), a},     work.File("no/x.ms"),
         1, std::nullopt, saveFailure + " 76 - Path not found\n"},
        {"read-only output",        {locked, a},                   locked,
         1, "keep", saveFailure + " 75 - Path/File access error\n"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<std::string> args{"combine"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        const std::size_t filesBefore = WorkFileCount();
        const Result r = Run(args);
        EXPECT_EQ(r.status, c.status);
        EXPECT_EQ(r.err, c.err);
        EXPECT_EQ(r.out, "");
        if (c.written)
            EXPECT_EQ(test::ReadBytes(c.output), *c.written);
        else
            EXPECT_EQ(WorkFileCount(), filesBefore);
    }
}

TEST_F(CombineCommandTest, BadArgumentsAreUsageErrors)
{
    const std::string a = work.Write("a.ms", "a\r\n");
    // clang-format off
    const std::vector<std::string> cases[] = {
        {"combine"},
        {"combine", work.File("out.ms")},
        {"combine", work.File("out.ms"), work.File("missing.ms")},
        {"combine", work.File("out.ms"), a, "--unknown"},
    };
    // clang-format on
    for (const auto& args : cases) {
        SCOPED_TRACE(args.back());
        const Result r = Run(args);
        EXPECT_EQ(r.status, 2);
        EXPECT_NE(r.err, "");
        EXPECT_FALSE(std::filesystem::exists(work.File("out.ms")));
    }
}

} // namespace
} // namespace tos
