#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <tuple>

#include "cli/commands.h"
#include "common/scratch.h"

namespace tos::test {

const std::string kCase = std::string(TOS_TEST_DATA_DIR) + "/script/valley_example/";

TEST(ScriptCommand, BuildsAsTheWindowWould)
{
    ScratchDir dir;
    dir.Write("Valley.scn", ReadBytes(kCase + "Valley.scn"));
    dir.Write("Valley.prj", "");
    dir.Write("Empty.prj", "");
    const std::string example = ReadBytes(kCase + "Valley_Main_Pine.ms");
    std::string printed = example;
    std::erase(printed, '\r');
    // Project, options behind those of the worked example, status, message boxes, file saved.
    // clang-format off
    const std::tuple<std::string, std::vector<std::string>, int, std::string, bool> cases[] = {
        {dir.File("Valley.prj"), {"--max-object", "Tree"},                   0, "",                                                             true},
        {dir.File("Valley.prj"), {"--max-object", "Tree", "--no-save"},      0, "",                                                             false},
        {dir.File("Valley.prj"), {"--use-max-name"},                         0, "",                                                             true},
        {dir.File("Valley.prj"), {},                                         1, "TolvarineObjectScripter: Please specify a Max object name\n", false},
        {dir.File("Valley.prj"), {"--use-max-name", "--use-tolvarine-name"}, 2, "",                                                             false},
        {dir.File("Valley.prj"), {"--max-object", "Tree", "--use-max-name"}, 2, "",                                                             false},
        {dir.File("Empty.prj"),  {"--max-object", "Tree"},                   1, "TolvarineObjectScripter: No SCN file found!!\n",              false},
    };
    // clang-format on
    for (const auto& [project, more, status, message, saved] : cases) {
        SCOPED_TRACE(project + testing::PrintToString(more));
        std::vector<const char*> argv{
            "tos-cli",           "script", project.c_str(),    "Pine",
            "--object-scale",    "50",     "--vertical-scale", "1.5",
            "--vertical-offset", "2.0",    "--max-file",       "C:\\Models\\Tree.max"};
        for (const std::string& m : more)
            argv.push_back(m.c_str());
        std::filesystem::remove(dir.File("Valley_Main_Pine.ms"));
        std::ostringstream out, err;
        EXPECT_EQ(cli::Run(int(argv.size()), argv.data(), out, err, dir.Path().string()), status);
        EXPECT_EQ(out.str(), status == 0 ? printed : "");
        if (status != 2) { // a usage error's text is the parser's
            EXPECT_EQ(err.str(), message);
        }
        EXPECT_EQ(ReadBytes(dir.File("Valley_Main_Pine.ms")), saved ? example : "");
    }
}

TEST(ScriptCommand, StyleOptionsAndTheCheck)
{
    ScratchDir dir;
    dir.Write("Valley.scn", ReadBytes(kCase + "Valley.scn"));
    const std::string project = dir.Write("Valley.prj", "");
    const std::string data = std::string(TOS_TEST_DATA_DIR) + "/script/";
    const std::string script = dir.File("Valley_Main_Pine.ms");
    struct Case {
        std::vector<std::string> options;
        int status;
        std::string golden; // the saved script's case folder; "" for none
        std::string err;
    };
    // clang-format off
    const Case cases[] = {
        {{"--style", "max2008", "--instances", "--max-object", "Tree"}, 0, "valley_instances", ""},
        {{"--style", "MAX2008", "--max-object", "Big \"Tree", "--max-file", "\\\\NAS\\Models\\Tree.max",
          "--check"}, 0, "valley_max2008", ""},
        {{"--max-object", "Tree", "--check"}, 0, "valley_example", ""},
        {{"--max-object", "Big Tree", "--no-save", "--check"}, 0, "",
         script + ":13: 3ds Max would stop at line 13: the name Big Tree needs quotes. "
                  "Use --style max2008.\n"},
        {{"--max-object", "Tree", "--instances"}, 2, "", ""},
        {{"--max-object", "Tree", "--style", "max2009"}, 2, "", ""},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.options));
        std::vector<const char*> argv{
            "tos-cli",           "script", project.c_str(),    "Pine",
            "--object-scale",    "50",     "--vertical-scale", "1.5",
            "--vertical-offset", "2.0",    "--max-file",       "C:\\Models\\Tree.max"};
        for (const std::string& o : c.options)
            argv.push_back(o.c_str());
        std::filesystem::remove(script);
        std::ostringstream out, err;
        EXPECT_EQ(cli::Run(int(argv.size()), argv.data(), out, err, dir.Path().string()), c.status);
        EXPECT_EQ(ReadBytes(script),
                  c.golden.empty() ? "" : ReadBytes(data + c.golden + "/Valley_Main_Pine.ms"));
        if (c.status != 2) { // a usage error's text is the parser's
            EXPECT_EQ(err.str(), c.err);
        }
    }
}

TEST(CheckCommand, TellsEachFindingOfEachFileAndExitsOneWhenAny)
{
    ScratchDir dir;
    const std::string data = std::string(TOS_TEST_DATA_DIR) + "/script/";
    const std::string clean =
        dir.Write("clean.ms", ReadBytes(data + "valley_max2008/Valley_Main_Pine.ms"));
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
    const Case cases[] = {
        {{clean}, 0, ""},
        {{clean, bad},
         1,
         bad +
             ":3: 3ds Max would stop at line 3: the name Big Tree needs quotes. Use --style "
             "max2008.\n" +
             bad +
             ":4: 3ds Max would misread line 4: the path \\\\NAS\\T.MAX starts with \\\\, "
             "which a string reads as one backslash. Use --style max2008.\n"},
        {{bad, missing}, 2, ""},
    };
    for (const Case& c : cases) {
        std::vector<const char*> argv{"tos-cli", "check"};
        for (const std::string& f : c.files)
            argv.push_back(f.c_str());
        std::ostringstream out, err;
        EXPECT_EQ(cli::Run(int(argv.size()), argv.data(), out, err, dir.Path().string()), c.status);
        EXPECT_EQ(out.str(), c.out);
        EXPECT_EQ(err.str().empty(), c.status != 2);
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
    const char* argv[] = {"tos-cli",    "script",          prj.c_str(),     "Pine",
                          "--max-file", "C:\\m\\pine.max", "--use-max-name"};
    std::ostringstream out, err;
    ASSERT_EQ(cli::Run(7, argv, out, err, dir.Path().string()), 0) << err.str();
    const std::string printed = out.str();
    std::string saved = ReadBytes(dir.File("Forest_Main_Pine.ms"));
    std::erase(saved, '\r');
    EXPECT_EQ(saved, printed);
    // Head 10 rows, first object 6, 11,999 copies of 6, the first object's turns 5.
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 10 + 6 + 11999 * 6 + 5);
    EXPECT_NE(printed.find("\ncopy $pine isSelected:on name:\"pine11999\"\n"), std::string::npos);
}

} // namespace tos::test
