#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "cli_run.h"
#include "common/scratch.h"

namespace tos::test {

const std::string kData = std::string(TOS_TEST_DATA_DIR) + "/script/";

TEST(ScriptCommand, BuildsAsTheWindowWouldWithEachStyleAndTheCheck)
{
    ScratchDir dir;
    dir.Write("Valley.scn", ReadBytes(kData + "valley_example/Valley.scn"));
    dir.Write("Valley.prj", "");
    dir.Write("Empty.prj", "");
    const std::string script = dir.File("Valley_Main_Pine.ms");
    const std::string noName = "TolvarineObjectScripter: Please specify a Max object name\n";
    const std::string noScene = "TolvarineObjectScripter: No SCN file found!!\n";
    const std::string bigTree = script + ":13: 3ds Max would stop at line 13: the name Big Tree "
                                         "needs quotes. Use --style max2008.\n";
    const std::string nas = "\\\\NAS\\Models\\Tree.max";
    struct Case {
        std::vector<std::string> args; // behind those of the worked example
        int status = 0;
        std::string prints = {}; // the case folder of the script printed; "" for none
        bool saved = false;
        std::string err = {}; // unchecked for a usage error, whose text is the parser's
        std::string project = "Valley.prj";
    };
    // clang-format off
    const Case cases[] = {
        {.args = {"--max-object", "Tree"}, .prints = "valley_example", .saved = true},
        {.args = {"--max-object", "Tree", "--no-save"}, .prints = "valley_example"},
        {.args = {"--use-max-name"}, .prints = "valley_example", .saved = true},
        {.args = {}, .status = 1, .err = noName},
        {.args = {"--use-max-name", "--use-tolvarine-name"}, .status = 2},
        {.args = {"--max-object", "Tree", "--use-max-name"}, .status = 2},
        {.args = {"--max-object", "Tree"}, .status = 1, .err = noScene, .project = "Empty.prj"},
        {.args = {"--style", "max2008", "--instances", "--max-object", "Tree"},
         .prints = "valley_instances", .saved = true},
        {.args = {"--style", "MAX2008", "--max-object", "Big \"Tree", "--max-file", nas, "--check"},
         .prints = "valley_max2008", .saved = true},
        {.args = {"--max-object", "Tree", "--check"}, .prints = "valley_example", .saved = true},
        {.args = {"--max-object", "Big Tree", "--no-save", "--check"}, .err = bigTree},
        {.args = {"--max-object", "Tree", "--instances"}, .status = 2},
        {.args = {"--max-object", "Tree", "--style", "max2009"}, .status = 2},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.project + testing::PrintToString(c.args));
        // clang-format off
        std::vector<std::string> args{"script", dir.File(c.project), "Pine", "--object-scale", "50",
                                      "--vertical-scale", "1.5", "--vertical-offset", "2.0",
                                      "--max-file", "C:\\Models\\Tree.max"};
        // clang-format on
        args.insert(args.end(), c.args.begin(), c.args.end());
        std::filesystem::remove(script);
        const CliResult run = RunCli(args, dir.Path().string());
        EXPECT_EQ(run.status, c.status);
        const std::string golden =
            c.prints.empty() ? "" : ReadBytes(kData + c.prints + "/Valley_Main_Pine.ms");
        std::string printed = golden;
        std::erase(printed, '\r');
        if (c.status != 0 || !golden.empty()) {
            EXPECT_EQ(run.out, printed);
        }
        if (c.status != 2) {
            EXPECT_EQ(run.err, c.err);
        }
        EXPECT_EQ(ReadBytes(script), c.saved ? golden : "");
    }
}

TEST(CheckCommand, TellsEachFindingOfEachFileAndExitsOneWhenAny)
{
    ScratchDir dir;
    const std::string clean =
        dir.Write("clean.ms", ReadBytes(kData + "valley_max2008/Valley_Main_Pine.ms"));
    // Lines that end in LF alone count as lines too.
    const std::string bad =
        dir.Write("bad.ms", "-- x\n\n$Big Tree.pos = [0,0,0]\r\n"
                            "mergeMAXFile \"\\\\NAS\\T.MAX\" #mergeDups #select #noredraw");
    const std::string missing = dir.File("missing.ms");
    struct Case {
        std::vector<std::string> files;
        int status;
        std::string out;
    };
    const std::string stop = ":3: 3ds Max would stop at line 3: the name Big Tree needs quotes. ";
    const std::string misread = ":4: 3ds Max would misread line 4: the path \\\\NAS\\T.MAX starts "
                                "with \\\\, which a string reads as one backslash. ";
    const std::string hint = "Use --style max2008.\n";
    // clang-format off
    const Case cases[] = {
        {{clean}, 0, ""},
        {{clean, bad}, 1, bad + stop + hint + bad + misread + hint},
        {{bad, missing}, 2, ""},
    };
    // clang-format on
    for (const Case& c : cases) {
        std::vector<std::string> args{"check"};
        args.insert(args.end(), c.files.begin(), c.files.end());
        const CliResult run = RunCli(args, dir.Path().string());
        EXPECT_EQ(run.status, c.status);
        EXPECT_EQ(run.out, c.out);
        EXPECT_EQ(run.err.empty(), c.status != 2);
    }
}

// 12,000 copies of one object, each turned about all three axes: a script far
// longer than a 16-bit row index reaches, printed and saved whole.
TEST(ScriptCommand, WritesAForestPast32767RowsWhole)
{
    ScratchDir dir;
    std::string scene = "[Environment]\r\nTerrainWidth=5\r\nTerrainWidthScale=3.0\r\n"
                        "[StaticModels]\r\nNumberOfStaticModels=12000\r\n";
    for (int n = 1; n <= 12000; ++n)
        scene += "[Model" + std::to_string(n) +
                 "]\r\nSLT=Pine.SLT\r\nPosition=" + std::to_string(1540 + n % 700) + ",1.0," +
                 std::to_string(1540 + n / 20) +
                 "\r\nLookVector=0.36,0.48,0.8\r\nUpVector=0.48,0.64,-0.6\r\n";
    dir.Write("Forest.scn", scene);
    const std::string prj = dir.Write("Forest.prj", "");
    const CliResult run =
        RunCli({"script", prj, "Pine", "--max-file", "C:\\m\\pine.max", "--use-max-name"},
               dir.Path().string());
    ASSERT_EQ(run.status, 0) << run.err;
    const std::string& printed = run.out;
    std::string saved = ReadBytes(dir.File("Forest_Main_Pine.ms"));
    std::erase(saved, '\r');
    EXPECT_EQ(saved, printed);
    // Head 10 rows, first object 6, 11,999 copies of 6, the first object's turns 5.
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 10 + 6 + 11999 * 6 + 5);
    EXPECT_NE(printed.find("\ncopy $pine isSelected:on name:\"pine11999\"\n"), std::string::npos);
}

} // namespace tos::test
