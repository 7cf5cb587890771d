#include <gtest/gtest.h>

#include "build_fixture.h"
#include "script/builder.h"
#include "script/stock_builders.h"

namespace tos {
namespace {

using test::BuildFixture;
using test::CaseFile;
using test::CaseRows;
using test::ReadBytes;

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
        form.chkMainTile.SetValue(g.mainTile);
        form.txtGridRes.SetText(g.gridRes);
        form.txtNumberOfTiles.SetText(g.tiles);
        form.chkUseObjectScale.SetValue(g.useObjectScale);
        form.txtObjectScale.SetText(g.objectScale);
        form.txtGridSize.SetText(g.gridSize);
        form.txtVerticalScale.SetText(g.verticalScale);
        form.txtVerticalOffset.SetText(g.verticalOffset);
        form.txtMaxFile.SetText(g.maxFile);
        form.txtMaxObjectName.SetText(g.object);
        form.chkMax2008.SetValue(g.max2008);
        form.chkInstances.SetValue(g.instances);

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
