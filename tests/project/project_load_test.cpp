#include <gtest/gtest.h>

#include <filesystem>

#include "project/catalogue.h"
#include "scene_fixture.h"

namespace tos::test {
namespace {

using Rows = std::vector<std::string>;

const std::string kInside = "1920.0,4.0,2000.0";

// The trap message of each routine, in load order, for one failure.
Rows TrapMessages(const std::string& failure, Rows routines = {})
{
    for (const char* r : {"ProcessSCNmodels", "ProcessBillboards", "ProcessBales",
                          "ProcessTripleBales", "Process55GalDrums_TrashCans"})
        routines.push_back(r);
    for (std::string& routine : routines)
        routine = "Unexpected error in " + routine + ": " + failure;
    return routines;
}

TEST(ProjectLoad, RecordListsGroupStemsAndNumberCopies)
{
    LoadFixture fx;
    MainForm& f = fx.app->main;
    // clang-format off
    fx.Load(SceneText({{"Tree_KV_Oak.SLT",   kInside}, {"Barn.slt", kInside}, {"tree_KV_Pine.SLT", kInside},
                       {"Billboard_FOX.SLB", kInside}, {"Barn.SLT", kInside}, {"50Gal.SLB",        kInside}}));
    // clang-format on
    EXPECT_EQ(f.lstSCNdata2.Rows(),
              (Rows{"Barn|002|001", "Barn|005|002", "Tree|001|001", "tree|003|002"}));
    EXPECT_EQ(f.comboSelectObject.Items().Rows(),
              (Rows{"* Option 1:  All Stock Billboard Banners",
                    "* Option 4:  All Stock 55Gal Drums/Trash Cans", "Barn", "Tree"}));
    EXPECT_EQ(f.lblSLTcount.Caption(), "4");
    EXPECT_TRUE(f.btnProcess.Enabled());
}

TEST(ProjectLoad, TileWindowAndTheScaleOrGridSizeThatRules)
{
    // Terrain width, grid resolution, position of a model, whether that lies on the main tile,
    // which box rules (1: the object scale) with its text, the other box after the load, failure.
    // clang-format off
    struct Case { const char *width, *res, *at; bool inside; int useScale; const char *ruling, *follows, *failure; };
    const Case cases[] = {
        {"5",   "3.0", "1536,0,2304",    true,  1, "100",   "768",        ""},
        {"5",   "3.0", "1535.99,0,2000", false, 1, "100",   "768",        ""},
        {"5",   "3.0", "2000,0,2304.01", false, 1, "100",   "768",        ""},
        {"5",   "3.0", "2000,0",         false, 1, "100",   "768",        ""},
        {"1",   "3.0", "0,0,0",          true,  1, "33.3",  "256",        ""},
        {"6",   "1",   "512,0,1024",     true,  1, "100",   "512",        ""},
        {"5.5", "1",   "512,0,512",      true,  1, "100",   "512",        ""},
        {"6.5", "1",   "1024,0,1024",    true,  0, "770",   "150.390625", ""},
        {"abc", "2",   "256,0,-256",     true,  1, "100",   "512",        ""},
        {"1",   "3.0", "0,0,0",          true,  0, "770",   "100.260417", ""},
        {"1",   "0",   "0,0,0",          true,  1, "50",    "0",          ""},
        {"1",   "0",   "0,0,0",          true,  0, "768",   "100.000000", "Division by zero ( 11)"},
        {"1",   "0",   "0,0,0",          true,  0, "0",     "100.000000", "Overflow ( 6)"},
        {"1",   "0",   "0,0,0",          true,  0, "0.4",   "100.000000", "Overflow ( 6)"},
        {"1",   "3.0", "0,0,0",          true,  1, "1e307", "768",        "Overflow ( 6)"},
    };
    // clang-format on
    for (const Case& c : cases) {
        for (const bool perimeter : {false, true}) {
            SCOPED_TRACE(testing::Message() << "row " << &c - cases << " perimeter " << perimeter);
            LoadFixture fx;
            MainForm& f = fx.app->main;
            fx.Load("A", SceneText({{"Barn.SLT", kInside}}));
            f.chkPerimeterTile.SetValue(perimeter ? 1 : 0);
            f.chkUseObjectScale.SetValue(c.useScale);
            (c.useScale ? f.txtObjectScale : f.txtGridSize).SetText(c.ruling);
            fx.Load("B", SceneText({{"T.SLT", c.at}, {"FoxHB.SLB", c.at}}, "2", c.width, c.res));
            // A failure leaves the first list empty and the two after it as they were.
            const bool failed = *c.failure != '\0', taken = !failed && c.inside != perimeter;
            EXPECT_EQ(fx.Messages(), failed ? TrapMessages(c.failure) : Rows{});
            EXPECT_EQ((c.useScale ? f.txtGridSize : f.txtObjectScale).Text(), c.follows);
            EXPECT_EQ(f.lstSCNdata1.Rows(), taken ? Rows{"T|001"} : Rows{});
            EXPECT_EQ(f.lstSCNdata3.Rows(), failed ? Rows{"Barn"} : taken ? Rows{"T"} : Rows{});
            EXPECT_EQ(f.lstBales.Rows(), taken ? Rows{"002|FoxHB.SLB"} : Rows{});
            EXPECT_EQ(f.txtNumberOfTiles.Text(), c.width);
        }
    }
}

TEST(ProjectLoad, MissingSceneAndMissingValues)
{
    LoadFixture fx;
    MainForm& f = fx.app->main;
    fx.Load("First", SceneText({{"Barn.SLT", kInside}, {"Tree.SLT", kInside}}, "2", "7", "2.0"));
    f.chkUseTolvarineName.SetValue(1);
    f.comboSelectObject.SetText("Barn");
    fx.Load("Lost", nullptr);
    EXPECT_EQ(fx.app->state.ScnFile, fx.dir.File("Lost.scn"));
    EXPECT_EQ(f.txtProjectFilePath.Text(), fx.dir.File("First.prj"));
    EXPECT_EQ(f.lstSCNdata3.Rows(), (Rows{"Barn", "Tree"}));
    EXPECT_EQ(f.txtMaxObjectName.Text(), "Barn");

    // No count: the former count of 2 reads the sections; absent values keep the boxes.
    fx.Load(SceneText({{"A.SLT", "0"}, {"B.SLT", kInside}, {"C.SLT", kInside}}, "", "", ""));
    const std::string useDefault = " value from project files.  Using default...";
    const std::string noWidth = "Cannot determine TerrainWidth" + useDefault;
    const std::string noScale = "Cannot determine TerrainWidthScale" + useDefault;
    EXPECT_EQ(fx.Messages(),
              (Rows{"No SCN file found!!", "Error reading NumberOfStaticModels in SCN file.",
                    noWidth, noScale}));
    EXPECT_EQ(fx.platform.messages.at(1).title, "Tolvarine Object Scripter");
    EXPECT_EQ(fx.platform.messages.at(1).icon, MessageIcon::Exclamation);
    EXPECT_EQ(f.txtGridRes.Text(), "2.0");
    EXPECT_EQ(f.lblSLTcount.Caption(), "2");
    EXPECT_EQ(f.lstSCNdata3.Rows(), (Rows{"B"}));
    // Emptying the chosen object reaches the object name that follows it.
    EXPECT_EQ(f.txtMaxObjectName.Text(), "");

    // A scene gone once counted is read model by model, each read reporting it.
    fx.platform.ClearMessages();
    const std::string gone = fx.dir.File("Gone.scn");
    f.txtProjectFilePath.Change.Connect([&] { std::filesystem::remove(gone); });
    fx.Load("Gone", SceneText({{"Barn.SLT", kInside}, {"Tree.SLT", kInside}}));
    const std::string lost =
        "Unexpected error in GetINIString for file: " + gone + "  \nFile not found ( 53)";
    Rows expected = {lost, noWidth, lost, noScale};
    expected.resize(expected.size() + 10, lost);
    EXPECT_EQ(fx.Messages(), expected);
}

TEST(ProjectLoad, HugeCountsVisitOnlyTheSectionsThereInTextOrder)
{
    // clang-format off
    const std::vector<SceneModel> models = {
        {"Barn.SLT",  kInside},      {"Tree_KV_A.SLT", kInside}, {"Tree.SLT", "0,0,0"}, {"FoxHB.SLB", kInside, 998},
        {"Barn.SLT",  kInside},      {"FoxHB.SLB", kInside},     {"Rock.SLT", kInside, 1999999999},
        {"Barn.SLT",  kInside, 2000000000}, {"Silo.SLT", kInside}, {"50Gal.SLB", kInside, 2147483647}};
    // clang-format on
    LoadFixture fx;
    MainForm& f = fx.app->main;
    fx.Load(SceneText(models, "2000000000"));
    EXPECT_EQ(f.lblSLTcount.Caption(), "6");
    EXPECT_EQ(f.lstSCNdata2.Rows(), (Rows{"Barn|001|001", "Barn|2000000000|002", "Barn|999|003",
                                          "Rock|1999999999|001", "Tree|002|001"}));
    EXPECT_EQ(f.lstBales.Rows(), (Rows{"1000|FoxHB.SLB", "998|FoxHB.SLB"}));

    // A counter that must step past the largest 32-bit number overflows after the last model.
    fx.Load("Max", SceneText(models, "2147483647"));
    EXPECT_EQ(fx.Messages(), TrapMessages("Overflow ( 6)", {"GetSLTcount"}));
    EXPECT_EQ(f.lblSLTcount.Caption(), "6");
    EXPECT_EQ(f.lstSCNdata1.Rows().size(), 6u);
    EXPECT_EQ(f.lstSCNdata3.Rows(), (Rows{"Barn", "Rock", "Tree"}));
    EXPECT_EQ(f.lst55GalDrums_TrashCans.Rows(), Rows{"2147483647|50Gal.SLB"});

    // A count of 0 empties every list the former project filled.
    fx.Load("None", SceneText(models, "0"));
    EXPECT_EQ(f.lblSLTcount.Caption(), "0");
    EXPECT_TRUE(f.lstSCNdata2.Rows().empty() && f.comboSelectObject.Items().Rows().empty());
}

TEST(Catalogue, MembershipIsCaseBlindOnTheWholeFileNameAndMiscItemsAreObjects)
{
    LoadFixture fx("[MiscStockObjects]\nTotalItems=2\nItem_1=Crate_KV_Big.SLB\nItem_2=Fox03.SLB\n");
    bool (*const tests[])(App&, const std::string&) = {
        IsInternalBillboard, IsInternalBale, IsInternalTripleBale, IsInternal55GalDrum_TrashCan,
        IsInternalMiscStockObject};
    // The tables that answer yes: billboard (W), bale, triple bale, drum or can, misc.
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"billboard_fox2.slb", "W----"}, {"fox03.slb",        "-B--M"}, {"TRIPLEBALE08.SLB", "--T--"},
        {"50gal.SLB",          "---D-"}, {"CRATE_kv_big.slb", "----M"}, {"x\\Fox03.SLB",     "-----"},
        {"Fox03",              "-----"}, {"",                 "-----"}, {"Fox03.SLB ",       "-----"},
    };
    // clang-format on
    for (const auto& [value, tables] : cases) {
        std::string answers;
        for (int t = 0; t < 5; ++t)
            answers += tests[t](*fx.app, value) ? "WBTDM"[t] : '-';
        EXPECT_EQ(answers, tables) << value;
    }

    // The marker cuts only in its own case; a misc item that is also a bale is listed twice.
    const std::string in = "1920,0,2000";
    fx.Load(SceneText({{"crate_kv_big.slb", in}, {"Fox03.SLB", in}, {"Barn.SLT", in}}));
    EXPECT_EQ(fx.app->main.lstSCNdata3.Rows(), (Rows{"Barn", "crate_kv_big", "Fox03"}));
    EXPECT_EQ(fx.app->main.lstBales.Rows(), Rows{"002|Fox03.SLB"});
    EXPECT_EQ(fx.app->main.lblSLTcount.Caption(), "1");
}

TEST(Catalogue, MiscItemsFromTheCatalogueFile)
{
    const std::string m = "[MiscStockObjects]\nTotalItems=";
    const std::string err = "Unexpected error in LoadInternalObjects. ";
    // clang-format off
    struct Case { std::string file; Rows items, messages; }; // "": no file at all
    const Case cases[] = {
        {"",                                        {},                 {}},
        {"[Other]\nTotalItems=2\n",                 {},                 {}},
        {m + "3\nItem_1=A.SLB\nItem_3=C.SLB\n",     {"A.SLB", "C.SLB"}, {"Error reading: Item_2 in TolvarineObjectScripter.ini"}},
        {m + "2.5\nItem_1=A.SLB\nItem_2=B.SLB\nItem_3=C.SLB\n", {"A.SLB", "B.SLB"}, {}},
        {m + "2\nItem_1=A.SLB\nItem_2=a.slb\n",     {"A.SLB"},          {err + "This key is already associated with an element of this collection ( 457)"}},
        {m + "3000000000\n",                        {},                 {err + "Overflow ( 6)"}},
    };
    // clang-format on
    for (const Case& c : cases) {
        LoadFixture fx(c.file);
        EXPECT_EQ(fx.app->state.InternalMiscStockObject.Rows(), c.items) << c.file;
        EXPECT_EQ(fx.Messages(), c.messages) << c.file;
    }
}

} // namespace
} // namespace tos::test
