#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_session.h"
#include "cli_run.h"
#include "common/scratch.h"
#include "support/system.h"

namespace tos::test {
namespace {

TEST(ObjectsCommand, ListsTheObjectsReportsEveryMessageBoxAndRejectsBadUsage)
{
    ScratchDir dir;
    // Flat has no model count, and a grid resolution of 0.
    dir.Write("Flat.scn",
              "[Environment]\nTerrainWidth=5\nTerrainWidthScale=0\n[Model1]\nSLT=A.SLT\n");
    const std::string flat = dir.Write("Flat.prj", ""), lost = dir.Write("NoScene.prj", "");
    const std::string misc = dir.Write("misc.ini", "[MiscStockObjects]\nTotalItems=1\n");
    const std::string valley = std::string(TOS_SOURCE_DIR) + "/examples/Valley/Valley.prj";
    const std::string t = "TolvarineObjectScripter: ";
    const std::string noCount =
        "Tolvarine Object Scripter: Error reading NumberOfStaticModels in SCN file.\n";
    const std::string options =
        "* Option 1:  All Stock Billboard Banners\n* Option 2:  All Stock Single Bales\n"
        "* Option 3:  All Stock Triple Bales\n* Option 4:  All Stock 55Gal Drums/Trash Cans\n";
    std::string zero = noCount;
    for (const char* routine : {"ProcessSCNmodels", "ProcessBillboards", "ProcessBales",
                                "ProcessTripleBales", "Process55GalDrums_TrashCans"})
        zero += t + "Unexpected error in " + routine + ": Division by zero ( 11)\n";
    // clang-format off
    struct Case { std::vector<std::string> args; int status; std::string out, err; };
    const Case cases[] = {
        {{valley},                                          0, options + "Barn\nFence\nRock\nShed\nTree\nWaterTower\n", ""},
        {{valley, "--perimeter", "--perimeter"},            0, options + "Barn\nRock\nSilo\nTree\n", ""},
        {{lost},                                            1, "", t + "No SCN file found!!\n"},
        {{""},                                              0, "", ""},
        {{"./x/../Flat.prj", "--grid-size", "768"},         1, "", zero},
        {{flat, "--object-scale", "50", "--perimeter"},     1, "", noCount},
        {{flat, "--ini", misc},                             1, "", t + "Error reading: Item_1 in TolvarineObjectScripter.ini\n" + noCount},
        {{flat, "--ini", misc, "--ini", dir.File("none")},  1, "", noCount},
        {{},                                                2, "", ""},
        {{flat, "--grid-size", "10", "--object-scale", "5"}, 2, "", ""},
        {{flat, "--colour"},                                2, "", ""},
        {{flat, flat},                                      2, "", ""},
        {{flat, "--grid-size"},                             2, "", ""},
        {{dir.File("Missing.prj")},                         2, "", ""},
    };
    // clang-format on
    const auto previous = std::filesystem::current_path();
    std::filesystem::current_path(dir.Path());
    std::filesystem::create_directory("x");
    // A relative project gets the current folder and a separator in front, and nothing else;
    // Windows also folds the dots, as it does for every path it makes full.
    EXPECT_EQ(cli::AbsolutePath("./x/../Flat.prj"), kPathSeparator == '/'
                                                        ? dir.Path().string() + "/./x/../Flat.prj"
                                                        : dir.File("Flat.prj"));
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.args));
        std::vector<std::string> args{"objects"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        const CliResult run = RunCli(args, dir.Path().string());
        EXPECT_EQ(run.status, c.status);
        EXPECT_EQ(run.out, c.out);
        // A usage error's text is the parser's own; it only has to be there.
        EXPECT_TRUE(c.status == cli::kExitUsage ? !run.err.empty() : run.err == c.err) << run.err;
    }
    std::filesystem::current_path(previous);
}

} // namespace
} // namespace tos::test
