#include <gtest/gtest.h>

#include "scene_fixture.h"

namespace tos::test {
namespace {

using Rows = std::vector<std::string>;

const std::string kInside = "1920.0,4.0,2000.0";
const std::string kOutside = "100.0,0.0,100.0";
const std::vector<const char*> kExtractions = {"ProcessSCNmodels", "ProcessBillboards",
                                               "ProcessBales", "ProcessTripleBales",
                                               "Process55GalDrums_TrashCans"};

Rows TrapMessages(std::vector<const char*> routines, const std::string& failure)
{
    Rows texts;
    for (const char* routine : routines)
        texts.push_back(std::string("Unexpected error in ") + routine + ": " + failure);
    return texts;
}

TEST(ProjectLoad, RecordListsGroupStemsAndNumberCopies)
{
    LoadFixture fx;
    fx.Load(SceneText({{"Tree_KV_Oak.SLT", kInside},
                       {"Barn.slt", kInside},
                       {"tree_KV_Pine.SLT", kInside},
                       {"Billboard_FOX.SLB", kInside},
                       {"Barn.SLT", kInside}}));
    MainForm& f = fx.app->main;
    EXPECT_EQ(f.lstSCNdata1.Rows(), (Rows{"Barn|002", "Barn|005", "Tree|001", "tree|003"}));
    EXPECT_EQ(f.lstSCNdata2.Rows(),
              (Rows{"Barn|002|001", "Barn|005|002", "Tree|001|001", "tree|003|002"}));
    EXPECT_EQ(f.lstSCNdata3.Rows(), (Rows{"Barn", "Tree"}));
    EXPECT_EQ(f.lstBillboards.Rows(), (Rows{"004|Billboard_FOX.SLB"}));
    EXPECT_EQ(f.comboSelectObject.Items().Rows(),
              (Rows{"* Option 1:  All Stock Billboard Banners", "Barn", "Tree"}));
    EXPECT_EQ(f.lblSLTcount.Caption(), "4");
    EXPECT_EQ(fx.app->state.ScriptBasePath, fx.dir.File("Scene"));
    EXPECT_TRUE(f.btnProcess.Enabled());
    EXPECT_TRUE(fx.Messages().empty());
}

TEST(ProjectLoad, TileWindowEdgesAndTileCounts)
{
    struct Case {
        const char* width;
        const char* scale;
        const char* position;
        bool inside;
        const char* gridSize;
    };
    // clang-format off
    const Case cases[] = {
        {"5",   "3.0", "1536,0,2304",      true,  "768"},
        {"5",   "3.0", "1535.99,0,2000",   false, "768"},
        {"5",   "3.0", "2000,0,2304.01",   false, "768"},
        {"5",   "3.0", "2000,0",           false, "768"},
        {"1",   "3.0", "0,0,0",            true,  "768"},
        {"1",   "3.0", "-0.5,0,10",        false, "768"},
        {"6",   "1",   "512,0,1024",       true,  "512"},
        {"6",   "1",   "640,0,511.9",      false, "512"},
        {"5.5", "1",   "512,0,512",        true,  "512"},
        {"6.5", "1",   "1024,0,1024",      true,  "512"},
        {"7",   "1",   "768,0,1024",       true,  "256"},
        {"abc", "2",   "256,0,-256",       true,  "512"},
        {"abc", "2",   "256.5,0,0",        false, "512"},
    };
    // clang-format on
    for (const Case& c : cases) {
        for (const bool perimeter : {false, true}) {
            SCOPED_TRACE(std::string(c.width) + " " + c.scale + " " + c.position +
                         (perimeter ? " perimeter" : " main"));
            LoadFixture fx;
            if (perimeter)
                fx.app->main.chkPerimeterTile.SetValue(1);
            fx.Load(SceneText({{"Barn.SLT", c.position}, {"FoxHB.SLB", c.position}}, "auto",
                              c.width, c.scale));
            const bool taken = c.inside != perimeter;
            MainForm& f = fx.app->main;
            EXPECT_EQ(f.lstSCNdata3.Rows(), taken ? Rows{"Barn"} : Rows{});
            EXPECT_EQ(f.lstBales.Rows(), taken ? Rows{"002|FoxHB.SLB"} : Rows{});
            EXPECT_EQ(f.txtGridSize.Text(), c.gridSize);
            EXPECT_EQ(f.txtNumberOfTiles.Text(), c.width);
        }
    }
}

TEST(ProjectLoad, PerimeterModeTakesCornerTilesAndOptionsKeepTheirOrder)
{
    LoadFixture fx;
    fx.app->main.chkPerimeterTile.SetValue(1);
    fx.Load(SceneText({{"Silo.SLT", "100,0,2000"},
                       {"Barn.SLT", kInside},
                       {"Silo_KV_Tall.SLT", "3000,0,3000"},
                       {"50Gal.SLB", "2000,0,3000"},
                       {"FoxHB.SLB", kOutside},
                       {"Billboard_RK.SLB", kInside}}));
    MainForm& f = fx.app->main;
    EXPECT_EQ(f.lstSCNdata2.Rows(), (Rows{"Silo|001|001", "Silo|003|002"}));
    EXPECT_EQ(f.comboSelectObject.Items().Rows(),
              (Rows{"* Option 2:  All Stock Single Bales",
                    "* Option 4:  All Stock 55Gal Drums/Trash Cans", "Silo"}));
}

TEST(ProjectLoad, ModelNumbersPastNineHundredNinetyNineSortAsText)
{
    LoadFixture fx;
    fx.Load(SceneText({{"Barn.SLT", kInside, 998},
                       {"Barn.SLT", kInside},
                       {"Barn.SLT", kInside},
                       {"FoxHB.SLB", kInside},
                       {"FoxHB.SLB", kInside, 7}},
                      "1001"));
    MainForm& f = fx.app->main;
    EXPECT_EQ(f.lstSCNdata2.Rows(), (Rows{"Barn|1000|001", "Barn|998|002", "Barn|999|003"}));
    EXPECT_EQ(f.lstBales.Rows(), (Rows{"007|FoxHB.SLB", "1001|FoxHB.SLB"}));
    EXPECT_EQ(f.lblSLTcount.Caption(), "3");
}

TEST(ProjectLoad, MissingSceneAndMissingValues)
{
    LoadFixture fx;
    fx.Load("First",
            SceneText({{"Barn.SLT", kInside}, {"Tree.SLT", kInside}}, "2", "7", "2.0").c_str());
    ASSERT_TRUE(fx.Messages().empty());

    fx.Load("Lost", nullptr);
    MainForm& f = fx.app->main;
    EXPECT_EQ(fx.Messages(), Rows{"No SCN file found!!"});
    EXPECT_EQ(fx.app->state.ScnFile, fx.dir.File("Lost.scn"));
    EXPECT_EQ(f.txtProjectFilePath.Text(), fx.dir.File("First.prj"));
    EXPECT_EQ(f.lstSCNdata3.Rows(), (Rows{"Barn", "Tree"}));

    // No count: the former count of 2 reads the sections; absent values keep the boxes.
    fx.platform.ClearMessages();
    fx.Load(SceneText({{"Shed.SLT", kOutside}, {"Silo.SLT", kInside}, {"Hut.SLT", kInside}}, "", "",
                      ""));
    EXPECT_EQ(
        fx.Messages(),
        (Rows{"Error reading NumberOfStaticModels in SCN file.",
              "Cannot determine TerrainWidth value from project files.  Using default...",
              "Cannot determine TerrainWidthScale value from project files.  Using default..."}));
    ASSERT_FALSE(fx.platform.messages.empty());
    EXPECT_EQ(fx.platform.messages[0].title, "Tolvarine Object Scripter");
    EXPECT_EQ(fx.platform.messages[0].icon, MessageIcon::Exclamation);
    EXPECT_EQ(f.txtNumberOfTiles.Text(), "7");
    EXPECT_EQ(f.txtGridRes.Text(), "2.0");
    EXPECT_EQ(f.lblSLTcount.Caption(), "2");
    EXPECT_EQ(f.lstSCNdata3.Rows(), (Rows{"Silo"}));
}

TEST(ProjectLoad, ZeroGridResWithGridSizeRulingFailsEveryExtraction)
{
    struct Case {
        const char* gridSize;
        const char* failure;
    };
    // clang-format off
    const Case cases[] = {
        {"768", "Division by zero ( 11)"},
        {"0",   "Overflow ( 6)"},
        {"0.4", "Overflow ( 6)"},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.gridSize);
        LoadFixture fx;
        fx.Load("Good", SceneText({{"Barn.SLT", kInside}}).c_str());
        fx.app->main.chkUseObjectScale.SetValue(0);
        fx.app->main.txtGridSize.SetText(c.gridSize);
        fx.Load(
            "Flat",
            SceneText({{"Tree.SLT", kInside}, {"FoxHB.SLB", kInside}}, "auto", "5", "0").c_str());
        EXPECT_EQ(fx.Messages(), TrapMessages(kExtractions, c.failure));
        MainForm& f = fx.app->main;
        EXPECT_TRUE(f.lstSCNdata1.Rows().empty());
        EXPECT_EQ(f.lstSCNdata3.Rows(), Rows{"Barn"});
        EXPECT_TRUE(f.lstBales.Rows().empty());
    }
}

TEST(ProjectLoad, HugeCountsVisitOnlyTheSectionsThere)
{
    // The padding pushes the file onto the reader for large files.
    const std::string padding = "[Notes]\r\nText=" + std::string(70000, 'x') + "\r\n";
    const std::vector<SceneModel> models = {{"Barn.SLT", kInside},
                                            {"Tree_KV_A.SLT", kInside},
                                            {"FoxHB.SLB", kInside},
                                            {"Tree.SLT", kOutside},
                                            {"Rock.SLT", kInside, 1999999999},
                                            {"Barn.SLT", kInside, 2000000000},
                                            {"Silo.SLT", kInside, 2000000001},
                                            {"50Gal.SLB", kInside, 2147483647}};
    for (const std::string& extra : {std::string(), padding}) {
        SCOPED_TRACE(extra.size());
        LoadFixture fx;
        fx.Load(SceneText(models, "2000000000") + extra);
        MainForm& f = fx.app->main;
        EXPECT_TRUE(fx.Messages().empty());
        EXPECT_EQ(f.lblSLTcount.Caption(), "5");
        EXPECT_EQ(f.lstSCNdata2.Rows(), (Rows{"Barn|001|001", "Barn|2000000000|002",
                                              "Rock|1999999999|001", "Tree|002|001"}));
        EXPECT_EQ(f.lstBales.Rows(), Rows{"003|FoxHB.SLB"});

        // A counter that must step past the largest 32-bit number overflows after the last model.
        fx.Load("Max", (SceneText(models, "2147483647") + extra).c_str());
        Rows expected = TrapMessages({"GetSLTcount"}, "Overflow ( 6)");
        for (const std::string& m : TrapMessages(kExtractions, "Overflow ( 6)"))
            expected.push_back(m);
        EXPECT_EQ(fx.Messages(), expected);
        EXPECT_EQ(fx.app->state.NumberOfStaticModels.value(), 2147483647);
        EXPECT_EQ(f.lblSLTcount.Caption(), "5");
        EXPECT_EQ(f.lstSCNdata1.Rows().size(), 5u);
        EXPECT_EQ(f.lstSCNdata3.Rows(), (Rows{"Barn", "Rock", "Tree"}));
        EXPECT_EQ(f.lst55GalDrums_TrashCans.Rows(), Rows{"2147483647|50Gal.SLB"});
    }
}

} // namespace
} // namespace tos::test
