#include <gtest/gtest.h>

#include "cli_run.h"
#include "map/map_fixture.h"

namespace tos::test {
namespace {

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

} // namespace
} // namespace tos::test
