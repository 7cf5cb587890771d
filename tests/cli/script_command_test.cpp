#include <gtest/gtest.h>

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

} // namespace tos::test
