#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "gui/cp1252.h"
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
        return map.findChild<QLabel*>("lblSceneMapStatus")->text();
    }
    // What the model says the line under the map holds.
    QString Expected()
    {
        QString shown = gui::FromCp1252(StatusLine(map.Map()));
        for (const std::string& note : map.Map().notes)
            shown += "\n" + gui::FromCp1252(note);
        return shown;
    }

    test::LoadFixture fixture;
    App& app = *fixture.app;
    gui::MainWindow window{app};
    gui::SceneMapWindow map{app, &window};
};

// The window shows the model's status line and notes after each change of the
// form; what they say is the map's own test.
TEST_F(SceneMapWindowTest, OpensFromTheButtonAndFollowsSelectionAndTileChoice)
{
    EXPECT_FALSE(map.isVisible());
    QTest::mouseClick(window.findChild<QPushButton*>("btnSceneMap"), Qt::LeftButton);
    EXPECT_TRUE(map.isVisible() && map.objectName() == "frmSceneMap");
    const QString first = Status();
    EXPECT_EQ(first, Expected());

    // What the map holds for each is the map's own test; here the window has to follow.
    for (const auto& [selection, perimeter] : {std::pair("Tree", 0), {"Barn", 0}, {"Tree", 1}}) {
        app.main.chkPerimeterTile.SetValue(perimeter);
        app.main.comboSelectObject.SetText(selection);
        const QString status = Status();
        EXPECT_EQ(status, Expected());
        EXPECT_EQ(map.Map().selection, selection);
    }
    EXPECT_FALSE(map.Map().notes.empty());
    EXPECT_TRUE(fixture.Messages().empty());

    map.close();
    EXPECT_FALSE(map.isVisible() || app.sceneMap.visible);
}

TEST_F(SceneMapWindowTest, RestingOnAModelShowsItsHoverText)
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
    const QString model = gui::FromCp1252(DescribeModel(map.Map(), map.Map().models.at(0)));
    const QString placement = gui::FromCp1252(DescribePlacement(map.Map(), 0, false));
    EXPECT_TRUE(found == model || found == placement) << found.toStdString();
    EXPECT_TRUE(view->DescribeAt(QPointF(-50, -50)).isEmpty());
}

} // namespace
} // namespace tos
