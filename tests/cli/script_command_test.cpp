#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "cli/commands.h"
#include "common/scratch.h"

namespace tos::test {
namespace {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

Outcome RunCli(std::vector<std::string> args, const std::string& programFolder)
{
    args.insert(args.begin(), "tos-cli");
    std::vector<const char*> argv;
    for (const auto& a : args)
        argv.push_back(a.c_str());
    std::ostringstream out, err;
    const int status =
        cli::Run(static_cast<int>(argv.size()), argv.data(), out, err, programFolder);
    return {status, out.str(), err.str()};
}

// The rows of a file with CR LF endings, as tos-cli prints them.
std::string WithLf(std::string bytes)
{
    std::string out;
    for (char c : bytes)
        if (c != '\r')
            out += c;
    return out;
}

TEST(ScriptCommand, BuildsAsTheWindowWould)
{
    ScratchDir dir;
    const std::string example =
        ReadBytes(std::string(TOS_TEST_DATA_DIR) + "/script/valley_example/Valley_Main_Pine.ms");
    dir.Write("Valley.scn", "[Environment]\r\nTerrainWidth=5\r\nTerrainWidthScale=3.0\r\n"
                            "[StaticModels]\r\nNumberOfStaticModels=12\r\n"
                            "[Model3]\r\nSLT=Pine.SLT\r\nPosition=1920.0,4.0,2000.0\r\n"
                            "LookVector=0,0,-1\r\nUpVector=0,1,0\r\n"
                            "[Model7]\r\nSLT=Pine_KV_b.SLT\r\nPosition=1700.5,0.0,1850.25\r\n"
                            "LookVector=-1,0,0\r\nUpVector=0,1,0\r\n"
                            "[Model12]\r\nSLT=Pine.slt\r\nPosition=2100.0,1.0,1600.0\r\n"
                            "LookVector=1,0,0\r\nUpVector=0,1,0\r\n");
    dir.Write("Valley.prj", "");
    dir.Write("Empty.prj", "");
    const std::string prj = dir.File("Valley.prj");
    const std::string written = dir.File("Valley_Main_Pine.ms");
    const std::vector<std::string> exampleArgs{"script",
                                               prj,
                                               "Pine",
                                               "--object-scale",
                                               "50",
                                               "--vertical-scale",
                                               "1.5",
                                               "--vertical-offset",
                                               "2.0",
                                               "--max-file",
                                               "C:\\Models\\Tree.max"};
    const auto with = [&](std::vector<std::string> more) {
        std::vector<std::string> args = exampleArgs;
        args.insert(args.end(), more.begin(), more.end());
        return args;
    };
    const std::string t = "TolvarineObjectScripter: ";
    struct Case {
        std::vector<std::string> args;
        int status;
        std::string out;
        std::string err;
        bool fileWritten;
    };
    // clang-format off
    const Case cases[] = {
        {with({"--max-object", "Tree"}),                     0, WithLf(example), "", true},
        {with({"--max-object", "Tree", "--no-save"}),         0, WithLf(example), "", false},
        {with({"--use-max-name"}),                            0, WithLf(example), "", true},
        {exampleArgs,                                        1, "", t + "Please specify a Max object name\n", false},
        {with({"--use-max-name", "--use-tolvarine-name"}),    2, "", "", false},
        {with({"--max-object", "Tree", "--use-max-name"}),    2, "", "", false},
        {{"script", dir.File("Empty.prj"), "Pine", "--max-file", "t.max", "--max-object", "T"},
                                                              1, "", t + "No SCN file found!!\n", false},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.args.back());
        std::filesystem::remove(written);
        const Outcome o = RunCli(c.args, dir.Path().string());
        EXPECT_EQ(o.status, c.status);
        EXPECT_EQ(o.out, c.out);
        if (c.status != 2) {
            EXPECT_EQ(o.err, c.err);
        }
        EXPECT_EQ(std::filesystem::exists(written), c.fileWritten);
        if (c.fileWritten) {
            EXPECT_EQ(ReadBytes(written), example);
        }
    }
}

} // namespace
} // namespace tos::test
