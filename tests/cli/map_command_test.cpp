#include <gtest/gtest.h>

#include <sstream>

#include "cli/commands.h"
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
        int status;
        std::string out;        // "" for none
        std::size_t placements; // elements of class placement in the file
        std::size_t folded;
    };
    const Row rows[] = {
        {.args = {prj, "Tree", "--output", svg},
         .status = 0,
         .out = svg + ": 9 models, 2 placements\n",
         .placements = 2,
         .folded = 0},
        {.args = {prj, "--perimeter", "-o", svg, "Barn"},
         .status = 0,
         .out = svg + ": 9 models, 1 placement\n",
         .placements = 1,
         .folded = 1},
        {.args = {prj, "-o", svg},
         .status = 0,
         .out = svg + ": 9 models, 0 placements\n",
         .placements = 0,
         .folded = 0},
        {.args = {prj, "Tree"}, .status = 2, .out = "", .placements = 0, .folded = 0},
        {.args = {prj, "Tree", "-o", nowhere},
         .status = 1,
         .out = "",
         .placements = 0,
         .folded = 0},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(testing::PrintToString(r.args));
        std::filesystem::remove(svg);
        std::vector<const char*> argv{"tos-cli", "map"};
        for (const std::string& a : r.args)
            argv.push_back(a.c_str());
        std::ostringstream out, err;
        EXPECT_EQ(cli::Run(int(argv.size()), argv.data(), out, err, dir.Path().string()), r.status);
        EXPECT_EQ(out.str(), r.out);
        if (r.status == 1) {
            EXPECT_NE(err.str().find("cannot write " + nowhere), std::string::npos);
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
