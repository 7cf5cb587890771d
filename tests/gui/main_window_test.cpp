#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTest>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "gui/cp1252.h"
#include "gui/main_window.h"
#include "gui/qt_platform.h"
#include "forms/app.h"
#include "shell/startup.h"

namespace tos {
namespace {

struct MainWindowTest : ::testing::Test {
    static void SetUpTestSuite()
    {
        static int argc = 1;
        static char name[] = "main_window_test", *argv[] = {name, nullptr};
        // Kept to the end of the process: Qt's own cleanup at exit must find it alive.
        new QApplication(argc, argv);
    }
    MainWindowTest()
    {
        Main(app);
        QApplication::setActiveWindow(&window);
    }
    template <class W = QWidget> W* Find(const char* name) { return window.findChild<W*>(name); }
    QString Shown(const char* name) { return Find(name)->property("text").toString(); }

    test::ScratchDir scratch;
    test::FakePlatform platform;
    App app{platform};
    gui::MainWindow window{app};
};

TEST_F(MainWindowTest, StartsInTheFirstStateAndUserActionsGoThroughTheModel)
{
    EXPECT_TRUE(window.isVisible() && window.minimumSize() == window.maximumSize() &&
                !(window.windowFlags() & Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(window.windowTitle() + " " + QString::number(window.width()),
              "Tolvarine Object Scripter 593");
    // clang-format off
    const std::tuple<const char*, const char*, bool> rows[] = {
        // widget               shows                           enabled
        {"txtProjectFilePath",  "",                             false},
        {"txtGridRes",          "3.0",                          true},
        {"txtObjectScale",      "100.000000",                   true},
        {"btnProcess",          "&Process",                     false},
        {"chkMainTile",         "Main Tile (re-load required)", true},
        {"lblVersion",          "Beta 1",                       true},
    };
    // clang-format on
    for (const auto& [name, shows, enabled] : rows)
        EXPECT_TRUE(Shown(name) == shows && Find(name)->isEnabled() == enabled) << name;
    for (const char* name : {"txtProjectFilePath", "txtGridRes", "txtGridSize"})
        EXPECT_TRUE(Find<QLineEdit>(name)->isReadOnly()) << name;
    EXPECT_EQ(Find("txtGridSize")->palette().color(QPalette::Base),
              QApplication::palette().color(QPalette::Button));
    EXPECT_EQ(Find("txtGridRes")->toolTip(), "Enter numbers ONLY!!");
    EXPECT_EQ(Find("List2")->font().family() + QString::number(Find("List2")->font().pointSize()),
              "Courier New9");

    auto* main = Find<QCheckBox>("chkMainTile");
    auto* perimeter = Find<QCheckBox>("chkPerimeterTile");
    for (const auto& [clicked, perimeterAfter] :
         {std::pair(main, true), {main, false}, {perimeter, true}, {perimeter, false}}) {
        QTest::mouseClick(clicked, Qt::LeftButton);
        EXPECT_TRUE(main->isChecked() != perimeterAfter &&
                    perimeter->isChecked() == perimeterAfter);
    }
    // Leaving a box cleans it; the box that rules is the one the user can type into.
    for (const auto& [name, typed, cleaned] :
         {std::tuple("txtGridSize", "2.5", "2"), {"txtObjectScale", "12.3456789", "12.345679"}}) {
        QTest::mouseClick(Find("chkUseObjectScale"), Qt::LeftButton);
        auto* box = Find<QLineEdit>(name);
        box->setFocus(Qt::TabFocusReason);
        box->selectAll();
        QTest::keyClicks(box, typed);
        Find("txtVerticalScale")->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(box->text().toStdString(), cleaned) << typed;
    }
    // The close box does what Exit does.
    window.close();
    EXPECT_FALSE(window.isVisible() || app.main.loaded);
}

TEST_F(MainWindowTest, ProjectLoadFillsTheObjectListAndWindowsTextGoesBothWays)
{
    platform.dialogAnswers = {scratch.Write("Valley.prj", "")};
    scratch.Write("Valley.scn", "[Environment]\r\nTerrainWidth=5\r\nTerrainWidthScale=3.0\r\n"
                                "[StaticModels]\r\nNumberOfStaticModels=2\r\n"
                                "[Model1]\r\nSLT=Tree_KV_Oak.SLT\r\nPosition=1920,4,2000\r\n"
                                "[Model2]\r\nSLT=Fox03.SLB\r\nPosition=1700,0,1800\r\n");
    // A window the user has dragged stays where it is.
    const QPoint dragged = window.pos() + QPoint(7, 9);
    window.move(dragged);
    QTest::mouseClick(Find("btnBrowseProjectFile"), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(window.pos(), dragged);
    auto* combo = Find<QComboBox>("comboSelectObject");
    EXPECT_EQ(combo->itemText(0) + "|" + combo->itemText(1) + "|" + combo->currentText(),
              "* Option 2:  All Stock Single Bales|Tree|");
    EXPECT_TRUE(Find("btnProcess")->isEnabled() && Find("txtProjectFilePath")->isEnabled());
    EXPECT_TRUE(platform.messages.empty());
    // A pick from the list reaches the model and, through it, the object name.
    QTest::mouseClick(Find("chkUseTolvarineName"), Qt::LeftButton);
    emit combo->activated(1);
    EXPECT_EQ(Shown("txtMaxObjectName"), "Tree");

    // A key whose text lies outside ASCII, as a keyboard layout delivers it.
    QTest::mouseClick(Find("chkUseTolvarineName"), Qt::LeftButton);
    QKeyEvent euro(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUtf8("\u20ac"));
    QApplication::sendEvent(Find("txtMaxObjectName"), &euro);
    EXPECT_EQ(app.main.txtMaxObjectName.Text(), "Tree\x80");
    app.main.txtMaxObjectName.SetText("\x93Oak\x94");
    EXPECT_EQ(Shown("txtMaxObjectName"), QString::fromUtf8("\u201cOak\u201d"));
}

TEST(QtPlatformTest, SettingsFiltersAndCodePage)
{
    QStandardPaths::setTestModeEnabled(true);
    gui::QtPlatform platform;
    const std::string key = "Software\\Tolvarine Object Scripter";
    platform.WriteSetting(key, "DefaultDir", "/home/u/caf\xE9");
    EXPECT_EQ(platform.ReadSetting(key, "DefaultDir") + platform.ReadSetting(key, "Nothing"),
              "/home/u/caf\xE9");
    EXPECT_EQ(gui::QtNameFilters("MS File (*.ms)|*.ms|Scripts|*.ms;*.mcr"),
              QStringList({"MS File (*.ms)", "Scripts (*.ms *.mcr)"}));
    // Every byte survives a round trip; the defined ones are the code page's characters.
    std::string all;
    for (int b = 0; b < 256; ++b)
        all.push_back(static_cast<char>(b));
    const QString text = gui::FromCp1252(all);
    EXPECT_EQ(gui::ToCp1252(text), all);
    EXPECT_EQ(text.mid(0x80, 4) + text.mid(0x9C, 4) + text.mid(0xFF),
              QString::fromUtf8("\u20ac\u0081\u201a\u0192\u0153\u009d\u017e\u0178\u00ff"));
    EXPECT_EQ(gui::ToCp1252(QString::fromUtf8("\u4e2d\U0001F600")), "??");
}

} // namespace
} // namespace tos
