#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "map/map_fixture.h"
#include "map/map_presentation.h"
#include "map/path_text.h"
#include "map/scene_map.h"
#include "map/scene_map_events.h"
#include "support/files.h"

namespace tos::test {
namespace {

struct Loaded : LoadFixture {
    Loaded(bool perimeter, const std::string& scene = MapScene())
    {
        if (perimeter)
            app->main.chkPerimeterTile.SetValue(1);
        Load(scene);
        platform.ClearMessages();
    }
    SceneMap Map(const std::string& selection)
    {
        app->main.comboSelectObject.SetText(selection);
        return SceneMapper(*app).Build();
    }
};

TEST(SceneMap, ModelsByKindAndWhatTheLoadTook)
{
    struct Row {
        ModelKind kind;
        bool takenMain;
        bool takenPerimeter;
    };
    const Row rows[] = {
        {.kind = ModelKind::Object, .takenMain = true, .takenPerimeter = false},
        {.kind = ModelKind::Object, .takenMain = false, .takenPerimeter = true},
        {.kind = ModelKind::Billboard, .takenMain = true, .takenPerimeter = false},
        {.kind = ModelKind::Bale, .takenMain = false, .takenPerimeter = true},
        {.kind = ModelKind::TripleBale, .takenMain = true, .takenPerimeter = false},
        {.kind = ModelKind::Drum, .takenMain = true, .takenPerimeter = false},
        {.kind = ModelKind::Other, .takenMain = false, .takenPerimeter = false},
        {.kind = ModelKind::Object, .takenMain = false, .takenPerimeter = true},
        {.kind = ModelKind::Object, .takenMain = true, .takenPerimeter = false},
    };
    for (const bool perimeter : {false, true}) {
        Loaded f(perimeter);
        const SceneMap map = f.Map("");
        ASSERT_EQ(map.models.size(), std::size(rows));
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            SCOPED_TRACE("model " + std::to_string(i + 1) + (perimeter ? " perimeter" : ""));
            EXPECT_EQ(map.models[i].number, int(i + 1));
            EXPECT_STREQ(KindClass(map.models[i].kind), KindClass(rows[i].kind));
            EXPECT_EQ(map.models[i].taken, perimeter ? rows[i].takenPerimeter : rows[i].takenMain);
        }
        EXPECT_EQ(map.models[0].value, "Tree_KV_Oak.SLT");
        EXPECT_EQ(map.models[0].y, 4);
        EXPECT_TRUE(map.placements.empty());
    }
}

TEST(SceneMap, PlacementsInScriptOrderWithFirstAndFolding)
{
    struct Row {
        bool perimeter;
        const char* selection;
        std::vector<int> numbers;
        std::vector<GroundPoint> folded; // empty: none folded
    };
    const Row rows[] = {
        {.perimeter = false, .selection = "Tree", .numbers = {1, 9}, .folded = {}},
        {.perimeter = false, .selection = "tree", .numbers = {}, .folded = {}},
        {.perimeter = true, .selection = "Barn", .numbers = {2}, .folded = {{0.5, 0}}},
        {.perimeter = true, .selection = "Tree", .numbers = {8}, .folded = {{0.5, 464}}},
        {.perimeter = true,
         .selection = "* Option 2:  All Stock Single Bales",
         .numbers = {4},
         .folded = {{100, 100}}},
        {.perimeter = false, .selection = "* option 3:  x", .numbers = {5}, .folded = {}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.selection);
        Loaded f(r.perimeter);
        const SceneMap map = f.Map(r.selection);
        ASSERT_EQ(map.placements.size(), r.numbers.size());
        for (std::size_t i = 0; i < r.numbers.size(); ++i) {
            const MapPlacement& p = map.placements[i];
            EXPECT_EQ(p.number, r.numbers[i]);
            EXPECT_EQ(p.first, i == 0);
            // Every test model looks along scene -z: 3ds Max's -x.
            EXPECT_EQ(p.lookX, -1);
            EXPECT_EQ(p.lookY, 0);
            ASSERT_EQ(p.folded.has_value(), !r.folded.empty());
            // 3ds Max's x runs along scene z, its y against scene x, from the origin.
            const GroundPoint stands = p.folded.value_or(p.at);
            EXPECT_EQ(p.maxX, stands.z - map.centre);
            EXPECT_EQ(p.maxY, map.centre - stands.x);
            if (p.folded) {
                EXPECT_EQ(p.folded->x, r.folded[i].x);
                EXPECT_EQ(p.folded->z, r.folded[i].z);
            }
        }
    }
}

TEST(SceneMap, ATileChoiceMadeAfterTheLoadShowsANoticeNotStaleCopies)
{
    for (const bool perimeter : {false, true}) {
        Loaded f(perimeter);
        f.app->main.chkPerimeterTile.SetValue(perimeter ? 0 : 1);
        const SceneMap map = f.Map("Tree");
        EXPECT_TRUE(map.placements.empty());
        ASSERT_FALSE(map.notes.empty());
        EXPECT_EQ(map.notes.back().rfind("The tile choice has changed since the load", 0), 0u);
        f.app->main.chkPerimeterTile.SetValue(perimeter ? 1 : 0);
        EXPECT_FALSE(f.Map("Tree").placements.empty()) << perimeter;
    }
}

// What the window and the picture say under the map of a loaded scene; the
// perimeter wording is the picture's test.
TEST(SceneMap, StatusLine)
{
    Loaded f(false);
    EXPECT_EQ(StatusLine(f.Map("")), "No row selected on the main tile \x97 9 models");
    EXPECT_EQ(StatusLine(f.Map("Tree")), "Tree: 2 placements on the main tile \x97 9 models");
}

// The picture shows the scene's path as its characters: a UTF-8 system's path
// becomes text of the code page, a byte of no UTF-8 sequence stays as it is.
TEST(SceneMap, PathsBecomeTextOfTheCodePage)
{
    struct Row {
        const char* path;
        const char* posix;
    };
    const Row rows[] = {
        {.path = "/p/T\xC3\xA4ler \xE2\x82\xAC.scn", .posix = "/p/T\xE4ler \x80.scn"},
        {.path = "/p/\xE6\x97\xA5.scn", .posix = "/p/?.scn"},
        {.path = "/p/T\xE4ler.scn", .posix = "/p/T\xE4ler.scn"},
        {.path = "/p/\xC0\xAF\xE2\x82", .posix = "/p/\xC0\xAF\xE2\x82"},
    };
    for (const Row& r : rows) {
#ifdef _WIN32
        // Windows spells paths in the code page already.
        EXPECT_EQ(PathAsText(r.path), r.path);
#else
        EXPECT_EQ(PathAsText(r.path), r.posix) << r.path;
#endif
    }
}

TEST(SceneMap, TileWindowAndOriginFollowTheGrid)
{
    struct Row {
        const char* tiles;
        const char* res;            // grid resolution
        bool per;                   // the perimeter tiles
        double from, to, mid, side; // the main tile's window, its centre, the terrain's side
    };
    // clang-format off
    const Row rows[] = {
        {.tiles = "5", .res = "3.0", .per = 0, .from = 1536, .to = 2304, .mid = 1920, .side = 3840},
        {.tiles = "6", .res = "1",   .per = 0, .from = 512,  .to = 1024, .mid = 768,  .side = 1536},
        {.tiles = "6", .res = "1",   .per = 1, .from = 512,  .to = 1024, .mid = 128,  .side = 1536},
        {.tiles = "1", .res = "2",   .per = 0, .from = 0,    .to = 512,  .mid = 256,  .side = 512},
    };
    // clang-format on
    for (const Row& r : rows) {
        SCOPED_TRACE(std::string(r.tiles) + " tiles at " + r.res);
        const std::string scene =
            SceneText({{.value = "A.SLT", .position = "1,2,3"}}, "auto", r.tiles, r.res);
        Loaded f(r.per, scene);
        const SceneMap map = f.Map("A");
        EXPECT_EQ(map.windowStart, r.from);
        EXPECT_EQ(map.windowEnd, r.to);
        EXPECT_EQ(map.centre, r.mid);
        EXPECT_EQ(map.terrainSide, r.side);
        EXPECT_EQ(map.mainTile, !r.per);
    }
}

TEST(SceneMap, OnlyLooks)
{
    Loaded f(false);
    App& app = *f.app;
    app.main.txtGridSize.SetText("700");
    app.main.chkUseObjectScale.SetValue(0);
    app.main.comboSelectObject.SetText("Tree");
    const std::string scale = app.main.txtObjectScale.Text();
    const auto rows = app.main.lstSCNdata2.Rows();
    app.state.LookX = 7;
    f.platform.ClearMessages();

    SceneMap map = SceneMapper(app).Build();
    EXPECT_EQ(map.placements.size(), 2u);
    // A scene gone from the disk is a note of the map, never a box.
    std::filesystem::remove(f.dir.File("Scene.scn"));
    map = SceneMapper(app).Build();
    EXPECT_TRUE(map.models.empty());
    EXPECT_FALSE(map.notes.empty());

    EXPECT_TRUE(f.Messages().empty()) << testing::PrintToString(f.Messages());
    EXPECT_EQ(app.main.txtObjectScale.Text(), scale);
    EXPECT_EQ(app.main.txtGridSize.Text(), "700");
    EXPECT_EQ(app.main.lstSCNdata2.Rows(), rows);
    EXPECT_EQ(app.state.LookX, 7);
    EXPECT_TRUE(app.main.List2.Rows().empty());
}

// Without a map window the button writes the picture beside the project and
// opens it; each way that can fail is one box.
TEST(SceneMap, ButtonWithoutAWindowOpensThePictureFile)
{
    struct Row {
        const char* what;
        bool load, readOnly, handler;
        bool asked;          // the desktop was asked to open the file
        const char* message; // start of the one box, "" for none
    };
    // clang-format off
    const Row rows[] = {
        {.what = "opened", .load = 1, .readOnly = 0, .handler = 1, .asked = 1, .message = ""},
        {.what = "no project", .load = 0, .readOnly = 0, .handler = 1, .asked = 0,
         .message = "Scene Map needs a loaded project."},
        {.what = "read-only", .load = 1, .readOnly = 1, .handler = 1, .asked = 0,
         .message = "The scene map could not be written to "},
        {.what = "no handler", .load = 1, .readOnly = 0, .handler = 0, .asked = 1,
         .message = "The scene map was written to "},
    };
    // clang-format on
    for (const Row& r : rows) {
        LoadFixture f;
        App& app = *f.app;
        app.sceneMap.drawnInWindow = false;
        if (r.load)
            f.Load(MapScene());
        app.main.comboSelectObject.SetText("Tree");
        f.platform.ClearMessages();
        f.platform.openSucceeds = r.handler;
        const std::string file = f.dir.File("Scene_Map.svg");
        if (r.readOnly)
            std::filesystem::permissions(f.dir.Write("Scene_Map.svg", "old"),
                                         std::filesystem::perms::owner_read);
        app.main.btnSceneMap.Click.Fire();

        EXPECT_FALSE(app.sceneMap.visible) << r.what;
        EXPECT_EQ(f.platform.openedDocuments,
                  r.asked ? std::vector<std::string>{file} : std::vector<std::string>{})
            << r.what;
        const auto texts = f.Messages();
        if (*r.message != '\0') {
            ASSERT_EQ(texts.size(), 1u) << r.what;
            EXPECT_EQ(texts[0].rfind(r.message, 0), 0u) << r.what << ": " << texts[0];
            continue;
        }
        EXPECT_TRUE(texts.empty()) << r.what << testing::PrintToString(texts);
        // The picture of the form's state, with the line ends of the scripts beside it.
        const std::string svg = ReadWholeFile(file);
        EXPECT_EQ(svg.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
                            "<svg ",
                            0),
                  0u);
        EXPECT_NE(svg.find("<path class=\"placement first\" data-model=\"1\" d=\"M19"),
                  std::string::npos);
        EXPECT_EQ(std::count(svg.begin(), svg.end(), '\n'),
                  std::count(svg.begin(), svg.end(), '\r'));
        EXPECT_EQ(svg.find("\r\r"), std::string::npos);
    }
}

} // namespace
} // namespace tos::test
