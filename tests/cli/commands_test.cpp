#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "cli/cli_session.h"
#include "cli_run.h"
#include "common/scratch.h"
#include "map/map_fixture.h"
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

std::size_t CountOf(const std::string& text, const std::string& what)
{
    std::size_t count = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

TEST(MapCommand, WritesThePictureOfTheLoadAndSelection)
{
    ScratchDir dir;
    dir.Write("Valley.scn", MapScene());
    const std::string prj = dir.Write("Valley.prj", "");
    const std::string svg = dir.File("Valley.svg");
    const std::string nowhere = dir.File("missing/Valley.svg");
    struct Row {
        std::vector<std::string> args;
        int status = 0;
        std::string says = {};      // the line printed after the picture's name; "" for none
        std::size_t placements = 0; // elements of class placement in the file
        std::size_t folded = 0;
    };
    // clang-format off
    const Row rows[] = {
        {.args = {prj, "Tree", "--output", svg}, .says = "9 models, 2 placements", .placements = 2},
        {.args = {prj, "--perimeter", "-o", svg, "Barn"}, .says = "9 models, 1 placement",
         .placements = 1, .folded = 1},
        {.args = {prj, "-o", svg}, .says = "9 models, 0 placements"},
        {.args = {prj, "Tree"}, .status = 2},
        {.args = {prj, "Tree", "-o", nowhere}, .status = 1},
    };
    // clang-format on
    for (const Row& r : rows) {
        SCOPED_TRACE(testing::PrintToString(r.args));
        std::filesystem::remove(svg);
        std::vector<std::string> args{"map"};
        args.insert(args.end(), r.args.begin(), r.args.end());
        const CliResult run = RunCli(args, dir.Path().string());
        EXPECT_EQ(run.status, r.status);
        EXPECT_EQ(run.out, r.says.empty() ? "" : svg + ": " + r.says + "\n");
        if (r.status == 1) {
            EXPECT_NE(run.err.find("cannot write " + nowhere), std::string::npos);
        }
        const std::string picture = ReadBytes(svg);
        EXPECT_EQ(picture.empty(), r.status != 0);
        if (picture.empty())
            continue;
        EXPECT_EQ(CountOf(picture, "data-model"), 9 + r.placements + r.folded);
        EXPECT_EQ(CountOf(picture, "placement\" data-model") +
                      CountOf(picture, "placement first\" data-model"),
                  r.placements);
        EXPECT_EQ(CountOf(picture, "folded\" data-model"), r.folded);
    }
}

TEST(CombineCommand, JoinsScriptsAsTheWindowDoes)
{
    ScratchDir programDir, work;
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
        const CliResult run = RunCli(all, programDir.Path().string());
        EXPECT_EQ(run.status, status);
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(status == 2 ? run.err.find(err) != std::string::npos : run.err == err)
            << run.err;
        if (written)
            EXPECT_EQ(ReadBytes(args[0]), *written);
        else
            EXPECT_FALSE(std::filesystem::exists(out));
    }
}

} // namespace
} // namespace tos::test
