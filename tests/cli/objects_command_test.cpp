#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "cli/cli_session.h"
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

const std::string kValley = std::string(TOS_SOURCE_DIR) + "/examples/Valley/Valley.prj";
const std::string kOptions = "* Option 1:  All Stock Billboard Banners\n"
                             "* Option 2:  All Stock Single Bales\n"
                             "* Option 3:  All Stock Triple Bales\n"
                             "* Option 4:  All Stock 55Gal Drums/Trash Cans\n";

TEST(ObjectsCommand, ListsTheObjectsAndReportsEveryMessageBox)
{
    ScratchDir dir;
    dir.Write("Flat.scn", "[Environment]\r\nTerrainWidth=5\r\nTerrainWidthScale=0\r\n"
                          "[StaticModels]\r\nNumberOfStaticModels=1\r\n"
                          "[Model1]\r\nSLT=Crate.SLB\r\nPosition=0,0,0\r\n");
    dir.Write("Flat.prj", "");
    dir.Write("NoScene.prj", "");
    dir.Write("misc.ini", "[MiscStockObjects]\r\nTotalItems=2\r\nItem_1=Crate.SLB\r\n");
    const std::string flatPrj = dir.File("Flat.prj");
    const std::string t = "TolvarineObjectScripter: ";
    std::string zeroDivisions;
    for (const char* routine : {"ProcessSCNmodels", "ProcessBillboards", "ProcessBales",
                                "ProcessTripleBales", "Process55GalDrums_TrashCans"})
        zeroDivisions += t + "Unexpected error in " + routine + ": Division by zero ( 11)\n";
    struct Case {
        std::vector<std::string> args;
        int status;
        std::string out;
        std::string err;
    };
    // clang-format off
    const Case cases[] = {
        {{"objects", kValley},                  0, kOptions + "Barn\nFence\nRock\nShed\nTree\nWaterTower\n", ""},
        {{"objects", kValley, "--perimeter"},   0, kOptions + "Barn\nRock\nSilo\nTree\n",                    ""},
        {{"objects", kValley, "--perimeter", "--perimeter"},   0, kOptions + "Barn\nRock\nSilo\nTree\n",                    ""},
        {{"objects", dir.File("NoScene.prj")},  1, "",                       t + "No SCN file found!!\n"},
        {{"objects", ""},                       0, "",                       ""},
        {{"objects", flatPrj, "--grid-size", "768"}, 1, "",                  zeroDivisions},
        {{"objects", flatPrj, "--object-scale", "50", "--perimeter"}, 0, "", ""},
        {{"objects", flatPrj, "--ini", dir.File("misc.ini")}, 1, "Crate\n",
            t + "Error reading: Item_2 in TolvarineObjectScripter.ini\n"},
        {{"objects", flatPrj, "--ini", dir.File("misc.ini"), "--ini", dir.File("none.ini")}, 0, "", ""},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.args.back());
        const Outcome o = RunCli(c.args, dir.Path().string());
        EXPECT_EQ(o.status, c.status);
        EXPECT_EQ(o.out, c.out);
        EXPECT_EQ(o.err, c.err);
    }
}

TEST(ObjectsCommand, UsageErrors)
{
    ScratchDir dir;
    dir.Write("A.prj", "");
    const std::string prj = dir.File("A.prj");
    // clang-format off
    const std::vector<std::vector<std::string>> cases = {
        {"objects"},
        {"objects", prj, "--grid-size", "10", "--object-scale", "50"},
        {"objects", prj, "--colour"},
        {"objects", prj, prj},
        {"objects", prj, "--grid-size"},
        {"objects", dir.File("Missing.prj")},
    };
    // clang-format on
    for (const auto& args : cases) {
        SCOPED_TRACE(args.back());
        const Outcome o = RunCli(args, dir.Path().string());
        EXPECT_EQ(o.status, cli::kExitUsage);
        EXPECT_EQ(o.out, "");
        EXPECT_NE(o.err, "");
    }
}

TEST(ObjectsCommand, RelativeProjectGetsTheCurrentFolderInFront)
{
    ScratchDir dir;
    dir.Write("sub/Rel.prj", "");
    dir.Write("sub/Rel.scn", "[StaticModels]\r\nNumberOfStaticModels=1\r\n"
                             "[Model1]\r\nSLT=Barn.SLT\r\nPosition=2000,0,2000\r\n");
    const auto previous = std::filesystem::current_path();
    std::filesystem::current_path(dir.Path());
    const std::string made = cli::AbsoluteProjectPath("sub/../sub/Rel.prj");
    const Outcome o = RunCli({"objects", "sub/../sub/Rel.prj"}, dir.Path().string());
    std::filesystem::current_path(previous);
    EXPECT_EQ(made, dir.Path().string() + "/sub/../sub/Rel.prj");
    EXPECT_EQ(o.out, "Barn\n");
}

TEST(CliPlatform, EachMessageIsOneLine)
{
    std::ostringstream out, err;
    cli::CommandContext context{out, err, "/opt/tos", {}};
    cli::CliPlatform platform(context);
    platform.ShowMessage({"first\n\nsecond\n", "Title"});
    platform.ShowMessage({"plain"});
    EXPECT_EQ(err.str(), "Title: first\\n\\nsecond\\n\nTolvarineObjectScripter: plain\n");
    EXPECT_EQ(platform.MessageCount(), 2);
}

} // namespace
} // namespace tos::test
