#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <tuple>

#include "build_fixture.h"
#include "script/builder.h"
#include "script/stock_builders.h"

namespace tos {
namespace {

using test::BuildFixture;
using test::CaseFile;
using test::CaseRows;
using test::ReadBytes;
using Strings = std::vector<std::string>;

std::string Model(int n, const std::string& position, const std::string& look)
{
    return "[Model" + std::to_string(n) + "]\r\nPosition=" + position + "\r\nLookVector=" + look +
           "\r\nUpVector=0,1,0\r\n";
}

// Each build starts from two trees on the main tile, a former script in List2 and a
// former file of the name the build takes.
TEST(BuildScript, StopsWhereAFailureArisesAndNeverSpoilsAFormerFile)
{
    using SetUp = std::function<void(BuildFixture&, MainForm&)>;
    const auto perimeterAt = [](const char* gridRes, const char* x) -> SetUp {
        return [=](BuildFixture& f, MainForm& form) {
            f.Scene(Model(1, std::string(x) + ",0,0", "-1,0,0"));
            form.chkMainTile.SetValue(0);
            form.txtGridRes.SetText(gridRes);
        };
    };
    const SetUp noTile = [](BuildFixture&, MainForm& form) {
        form.txtGridRes.SetText("0");
        form.chkUseObjectScale.SetValue(0);
    };
    // clang-format off
    const std::tuple<const char*, SetUp, void (*)(App&), Strings, const char*, int, std::string, bool> rows[] = {
        {"saved over a former file", [](BuildFixture&, MainForm&) {},
                                     BuildScript, {},                                   "Valley_Main_Tree.ms", 23, "rotate $Tree (angleaxis 90 [0,0,1])", true},
        {"not saved",                [](BuildFixture& f, MainForm&) { f.app.state.SaveToFile = false; },
                                     BuildScript, {},                                   "Valley_Main_Tree.ms", 23, "rotate $Tree (angleaxis 90 [0,0,1])", false},
        {"read-only file",           [](BuildFixture& f, MainForm&) { std::filesystem::permissions(f.Written("Valley_Main_Tree.ms"), std::filesystem::perms(0444)); },
                                     BuildScript, {"Unexpected error in BuildScript \n\n 75 - Path/File access error"}, "Valley_Main_Tree.ms", 23, "rotate $Tree (angleaxis 90 [0,0,1])", false},
        {"empty selection",          [](BuildFixture&, MainForm& form) { form.comboSelectObject.SetText(""); },
                                     BuildScript, {"Invalid Object Name"},              "Valley_Main_Tree.ms", 1,  "former script", false},
        {"no tile, grid size rules", noTile,
                                     BuildScript, {"Unexpected error in BuildScript \n\n 11 - Division by zero"},      "Valley_Main_Tree.ms", 0,  "", false},
        {"no tile and no grid size", [&](BuildFixture& f, MainForm& form) { noTile(f, form); form.txtGridSize.SetText("0"); },
                                     BuildScript, {"Unexpected error in BuildScript \n\n 6 - Overflow"},               "Valley_Main_Tree.ms", 0,  "", false},
        {"fold on a tile of 0",      perimeterAt("0", "5"),
                                     BuildScript, {"Unexpected error in BuildScript \n\n 11 - Division by zero"},      "Valley_Per_Tree.ms",  10, "", false},
        {"fold past 32767 tiles",    perimeterAt("3", "30720000"),
                                     BuildScript, {"Unexpected error in BuildScript \n\n 6 - Overflow"},               "Valley_Per_Tree.ms",  10, "", false},
        {"a copy's turn overflows",  [](BuildFixture& f, MainForm&) { f.Scene(Model(1, "1920,0,1920", "-1,0,0") + Model(2, "0,0,0", "1e303,0,0")); },
                                     BuildScript, {"Unexpected error in BuildScript \n\n 6 - Overflow"},               "Valley_Main_Tree.ms", 18, "$Tree01.pos = [-1920.000000,1920.000000,0.000000]", false},
        {"the first object's turn",  [](BuildFixture& f, MainForm&) { f.Scene(Model(1, "1920,0,1920", "1e303,0,0") + Model(2, "0,0,0", "-1,0,0")); },
                                     BuildScript, {"Unexpected error in BuildScript \n\n 6 - Overflow"},               "Valley_Main_Tree.ms", 19, "", false},
        {"stock builder's own name", noTile,
                                     BuildTripleBaleScript, {"Unexpected error in BuildTripleBaleScript \n\n 11 - Division by zero"}, "Valley_Main_TripleBales.ms", 0, "", false},
    };
    // clang-format on
    for (const auto& [what, setUp, build, messages, fileName, rowsLeft, lastRow, replaced] : rows) {
        SCOPED_TRACE(what);
        BuildFixture f;
        MainForm& form = f.app.main;
        f.Scene(Model(1, "1920,0,1920", "0,0,-1") + Model(2, "2000,0,1900", "0,0,1"));
        f.Rows(&MainForm::lstSCNdata2, {"Tree|001|001", "Tree|002|002"});
        f.Rows(&MainForm::lstTripleBales, {"001|TripleBale01.SLB"});
        form.comboSelectObject.SetText("Tree");
        form.txtMaxFile.SetText("C:\\m\\tree.max");
        form.txtMaxObjectName.SetText("Tree");
        form.List2.AddItem("former script");
        f.app.state.ScriptFileName = f.dir.Write(fileName, "old script\r\n");
        setUp(f, form);
        build(f.app);
        EXPECT_EQ(f.platform.Texts(), messages);
        EXPECT_EQ(f.app.state.ScriptFileName, f.Written(fileName));
        ASSERT_EQ(form.List2.ListCount().value(), rowsLeft);
        EXPECT_EQ(rowsLeft ? form.List2.Rows().back() : "", lastRow);
        EXPECT_EQ(ReadBytes(f.Written(fileName)), replaced ? f.ScriptBytes() : "old script\r\n");
    }
}

// The largest record list, every row a copy of one object: the 16-bit copy
// counter reaches 32,767 without overflow and the script takes every row.
TEST(BuildScript, CountsCopiesUpToTheLargestRecordList)
{
    BuildFixture f;
    std::string scene;
    std::vector<std::string> rows;
    for (int n = 1; n <= ListBox::kMaxRows; ++n) {
        scene += Model(n, "1600,0,1700", "0,0,-1");
        rows.push_back("Tree|" + std::to_string(n) + "|001");
    }
    f.Scene(scene);
    f.Rows(&MainForm::lstSCNdata2, rows);
    MainForm& form = f.app.main;
    form.comboSelectObject.SetText("Tree");
    form.txtMaxFile.SetText("C:\\m\\tree.max");
    form.txtMaxObjectName.SetText("Tree");
    BuildScript(f.app);
    EXPECT_TRUE(f.platform.Texts().empty());
    // Head 10 rows, first object 6, 32,766 copies of 4, the first object's turn 3.
    ASSERT_EQ(form.List2.RowCount(), 10u + 6 + 32766 * 4 + 3);
    EXPECT_EQ(form.List2.Row(form.List2.RowCount() - 7),
              "copy $Tree isSelected:on name:\"Tree32766\"");
    EXPECT_EQ(ReadBytes(f.Written("Valley_Main_Tree.ms")), f.ScriptBytes());
}

// A scene, the rows of its record list and the expected script under
// tests/data/script/<name>/; the form's settings stand here.
struct Golden {
    const char* name;
    void (*build)(App&);
    ListBox MainForm::*list;
    const char* selection;
    int mainTile;
    const char* gridRes;
    const char* tiles;
    int useObjectScale;
    const char* objectScale;
    const char* gridSize;
    const char* verticalScale;
    const char* verticalOffset;
    const char* maxFile;
    const char* object;
    const char* fileName;
    const char* shownObjectScale; // after the build; "" where the box keeps its text
    const char* shownGridSize;
    int max2008 = 0; // the style boxes
    int instances = 0;
};

constexpr auto kObjects = &MainForm::lstSCNdata2;
constexpr auto kBales = &MainForm::lstBales;

// clang-format off
const Golden kCases[] = {
    {"valley_example",  BuildScript,     kObjects, "Pine", 1, "3.0", "5",   1, "50",          "768",  "1.5", "2.0",  "C:\\Models\\Tree.max",  "Tree", "Valley_Main_Pine.ms", "",          "384"},
    {"perimeter_fold",  BuildScript,     kObjects, "Rock", 0, "3.0", "5",   1, "100",         "768",  "1.0", "0.0",  "d:\\Scenes\\Rocks.max", "Rock", "Valley_Per_Rock.ms",  "",          "768"},
    {"six_tiles",       BuildScript,     kObjects, "Hut",  1, "3.0", "6",   0, "50",          "1536", "2",   "-1.5", "C:\\m\\hut.max",        "Hut",  "Valley_Main_Hut.ms",  "100.000000", ""},
    {"tiles_6_4",       BuildScript,     kObjects, "Hut",  1, "3.0", "6.4", 1, "100",         "1536", "2",   "-1.5", "C:\\m\\hut.max",        "Hut",  "Valley_Main_Hut.ms",  "",          "768"},
    {"grid_size_700",   BuildScript,     kObjects, "Oak",  1, "3.0", "5",   0, "100.000000",  "700",  "1.0", "0.0",  "C:\\Models\\Tree.max",  "Oak",  "Valley_Main_Oak.ms",  "91.145833", ""},
    {"copies_past_99",  BuildScript,     kObjects, "Post", 1, "3.0", "5",   1, "100",         "768",  "1.0", "0.0",  "C:\\Models\\Tree.max",  "Post", "Valley_Main_Post.ms", "",          "768"},
    {"no_match",        BuildScript,     kObjects, "pine", 1, "3.0", "5",   1, "100",         "768",  "1.0", "0.0",  "C:\\Models\\Tree.max",  "Tree", "Valley_Main_pine.ms", "",          "768"},
    {"scale_above_100", BuildScript,     kObjects, "Pine", 1, "3.0", "5",   1, "100.0000001", "768",  "1.0", "0.0",  "C:\\Models\\Tree.max",  "Tree", "Valley_Main_Pine.ms", "",          "768"},
    {"valley_max2008",  BuildScript,     kObjects, "Pine", 1, "3.0", "5",   1, "50",          "768",  "1.5", "2.0",  "\\\\NAS\\Models\\Tree.max", "Big \"Tree", "Valley_Main_Pine.ms", "", "384", 1, 0},
    {"valley_instances", BuildScript,    kObjects, "Pine", 1, "3.0", "5",   1, "50",          "768",  "1.5", "2.0",  "C:\\Models\\Tree.max",  "Tree", "Valley_Main_Pine.ms", "",          "384", 1, 1},
    {"stock_bales",     BuildBaleScript, kBales,   "* Option 2:  All Stock Single Bales", 0, "3.0", "5", 1, "100", "768", "1.0", "0.0",
                        "C:\\Stock\\Bale.max", "* Option 2:  All Stock Single Bales", "Valley_Per_Bales.ms", "", "768"},
};
// clang-format on

TEST(BuildScript, WritesTheExpectedScriptByteForByte)
{
    for (const Golden& g : kCases) {
        SCOPED_TRACE(g.name);
        BuildFixture f;
        f.SceneFromCase(g.name);
        f.Rows(g.list, CaseRows(g.name));
        MainForm& form = f.app.main;
        form.comboSelectObject.SetText(g.selection);
        using M = MainForm;
        // clang-format off
        for (const auto& [box, text] : {
                 std::pair{&M::txtGridRes, g.gridRes}, {&M::txtNumberOfTiles, g.tiles},
                 {&M::txtObjectScale, g.objectScale}, {&M::txtGridSize, g.gridSize},
                 {&M::txtVerticalScale, g.verticalScale}, {&M::txtVerticalOffset, g.verticalOffset},
                 {&M::txtMaxFile, g.maxFile}, {&M::txtMaxObjectName, g.object}})
            (form.*box).SetText(text);
        for (const auto& [box, value] : {std::pair{&M::chkMainTile, g.mainTile},
                 {&M::chkUseObjectScale, g.useObjectScale}, {&M::chkMax2008, g.max2008},
                 {&M::chkInstances, g.instances}})
            (form.*box).SetValue(value);
        // clang-format on

        g.build(f.app);

        const std::string expected = ReadBytes(CaseFile(g.name, g.fileName));
        EXPECT_TRUE(f.platform.messages.empty());
        EXPECT_EQ(f.app.state.ScriptFileName, f.Written(g.fileName));
        EXPECT_EQ(ReadBytes(f.Written(g.fileName)), expected);
        EXPECT_EQ(f.ScriptBytes(), expected);
        EXPECT_EQ(form.txtObjectScale.Text(),
                  *g.shownObjectScale ? g.shownObjectScale : g.objectScale);
        EXPECT_EQ(form.txtGridSize.Text(), *g.shownGridSize ? g.shownGridSize : g.gridSize);
    }
}

} // namespace
} // namespace tos
