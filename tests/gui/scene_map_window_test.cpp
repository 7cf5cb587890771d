#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "gui/main_window.h"
#include "gui/scene_map_window.h"
#include "map/map_fixture.h"

namespace tos {
namespace {

struct SceneMapWindowTest : ::testing::Test {
    static void SetUpTestSuite()
    {
        static int argc = 1;
        static char name[] = "scene_map_window_test", *argv[] = {name, nullptr};
        // Kept to the end of the process: Qt's own cleanup at exit must find it alive.
        new QApplication(argc, argv);
    }
    SceneMapWindowTest() { fixture.Load(test::MapScene()); }

    QString Status()
    {
        QApplication::processEvents();
        return map.findChild<QLabel*>("lblSceneMapStatus")->text().section('\n', 0, 0);
    }

    test::LoadFixture fixture;
    App& app = *fixture.app;
    gui::MainWindow window{app};
    gui::SceneMapWindow map{app, &window};
};

TEST_F(SceneMapWindowTest, OpensFromTheButtonAndFollowsSelectionAndTileChoice)
{
    EXPECT_FALSE(map.isVisible());
    QTest::mouseClick(window.findChild<QPushButton*>("btnSceneMap"), Qt::LeftButton);
    EXPECT_TRUE(map.isVisible() && map.objectName() == "frmSceneMap");
    EXPECT_EQ(Status(), "No row selected on the main tile \u2014 9 models");

    struct Row {
        const char* selection;
        bool perimeter;
        const char* status;
    };
    const Row rows[] = {
        {.selection = "Tree",
         .perimeter = false,
         .status = "Tree: 2 placements on the main tile \u2014 9 models"},
        {.selection = "Barn",
         .perimeter = false,
         .status = "Barn: 0 placements on the main tile \u2014 9 models"},
        // The lists stay those of the load: no copies are drawn until the next load.
        {.selection = "Tree",
         .perimeter = true,
         .status = "Tree: 0 placements, perimeter tiles folded onto one tile \u2014 9 models"},
    };
    for (const Row& r : rows) {
        app.main.chkPerimeterTile.SetValue(r.perimeter ? 1 : 0);
        app.main.comboSelectObject.SetText(r.selection);
        EXPECT_EQ(Status(), QString::fromUtf8(r.status));
    }
    EXPECT_TRUE(map.Map().placements.empty());
    EXPECT_EQ(map.Map().notes.back().rfind("The tile choice has changed", 0), 0u);
    EXPECT_TRUE(fixture.Messages().empty());

    map.close();
    EXPECT_FALSE(map.isVisible() || app.sceneMap.visible);
}

TEST_F(SceneMapWindowTest, RestingOnAModelTellsItsNumberValueAndPosition)
{
    app.main.comboSelectObject.SetText("Tree");
    app.main.btnSceneMap.Click.Fire();
    Status();
    auto* view = map.findChild<gui::SceneMapView*>("sceneMapView");
    ASSERT_NE(view, nullptr);
    // Search the widget for the spot that names model 1, the first object.
    QString found;
    for (int y = 0; y < view->height() && found.isEmpty(); y += 2)
        for (int x = 0; x < view->width() && found.isEmpty(); x += 2)
            if (view->DescribeAt(QPointF(x, y)).startsWith("Model 1\n"))
                found = view->DescribeAt(QPointF(x, y));
    EXPECT_TRUE(found.startsWith("Model 1\nTree_KV_Oak.SLT\nPosition 1920, 4, 2000"))
        << found.toStdString();
    EXPECT_TRUE(view->DescribeAt(QPointF(-50, -50)).isEmpty());
}

} // namespace
} // namespace tos
