#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>

#include <deque>
#include <memory>

#include "common/scratch.h"
#include "gui/cp1252.h"
#include "gui/main_window.h"
#include "gui/qt_platform.h"
#include "shell/app.h"
#include "shell/startup.h"

namespace tos {
namespace {

// The real Qt services, but dialogs and boxes answer from the test.
struct ScriptedPlatform : gui::QtPlatform {
    void ShowMessage(const MessageBox& box) override { messages.push_back(box.text); }
    std::string ShowFileDialog(const FileDialogRequest&) override
    {
        if (answers.empty())
            return "";
        std::string answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::string ProgramFolder() override { return folder; }

    std::vector<std::string> messages;
    std::deque<std::string> answers;
    std::string folder;
};

class MainWindowTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        static int argc = 1;
        static char name[] = "main_window_test";
        static char* argv[] = {name, nullptr};
        // Kept to the end of the process: Qt's own cleanup at exit must find it alive.
        if (!QApplication::instance())
            new QApplication(argc, argv);
        // Settings go to a throw-away test location, never the user's own.
        QStandardPaths::setTestModeEnabled(true);
    }

    MainWindowTest() : app(platform), window(app)
    {
        platform.folder = scratch.Path().string();
        app.endProcess = [this] { ++ended; };
        Main(app);
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
    }

    template <class W> W* Find(const char* name)
    {
        W* w = window.findChild<W*>(name);
        EXPECT_NE(w, nullptr) << name;
        return w;
    }

    test::ScratchDir scratch;
    ScriptedPlatform platform;
    App app;
    gui::MainWindow window;
    int ended = 0;
};

TEST_F(MainWindowTest, StartsInTheFirstState)
{
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), "Tolvarine Object Scripter");
    EXPECT_EQ(window.size(), QSize(593, 432));
    EXPECT_EQ(window.minimumSize(), window.maximumSize());
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));

    struct Row {
        const char* name;
        const char* text;
        bool enabled;
        bool readOnly;
    };
    // clang-format off
    const Row boxes[] = {
        {"txtProjectFilePath", "",           false, true},
        {"txtNumberOfTiles",   "5",          true,  true},
        {"txtGridRes",         "3.0",        true,  true},
        {"txtVerticalScale",   "1.0",        true,  false},
        {"txtVerticalOffset",  "0.0",        true,  false},
        {"txtMaxFile",         "",           true,  false},
        {"txtMaxObjectName",   "",           true,  false},
        {"txtObjectScale",     "100.000000", true,  false},
        {"txtGridSize",        "768",        true,  true},
    };
    const Row buttons[] = {
        {"btnBrowseProjectFile", "&Browse",            true,  false},
        {"btnBrowseMaxFile",     "Browse",             true,  false},
        {"btnProcess",           "&Process",           false, false},
        {"btnRunScriptCompiler", "Combine Scripts...", true,  false},
        {"btnViewHelp",          "View &Help",         true,  false},
        {"btnExit",              "E&xit",              true,  false},
    };
    const std::pair<const char*, bool> checks[] = {
        {"chkMainTile", true}, {"chkPerimeterTile", false}, {"chkSave", true},
        {"chkUseObjectScale", true}, {"chkUseTolvarineName", false}, {"chkUseMaxName", false},
    };
    // clang-format on
    const QColor grey = QApplication::palette().color(QPalette::Button);
    for (const Row& row : boxes) {
        auto* box = Find<QLineEdit>(row.name);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), row.text) << row.name;
        EXPECT_EQ(box->isEnabled(), row.enabled) << row.name;
        EXPECT_EQ(box->isReadOnly(), row.readOnly) << row.name;
    }
    for (const char* name : {"txtNumberOfTiles", "txtGridRes", "txtGridSize"})
        EXPECT_EQ(Find<QLineEdit>(name)->palette().color(QPalette::Base), grey) << name;
    EXPECT_NE(Find<QLineEdit>("txtObjectScale")->palette().color(QPalette::Base), grey);
    for (const Row& row : buttons) {
        auto* button = Find<QPushButton>(row.name);
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->text(), row.text);
        EXPECT_EQ(button->isEnabled(), row.enabled) << row.name;
    }
    for (const auto& [name, checked] : checks)
        EXPECT_EQ(Find<QCheckBox>(name)->isChecked(), checked) << name;

    EXPECT_EQ(Find<QLabel>("lblVersion")->text(), "Beta 1");
    EXPECT_EQ(Find<QGroupBox>("Frame2")->title(), "Source MAX File and Object Name");
    EXPECT_EQ(Find<QLineEdit>("txtGridRes")->toolTip(), "Enter numbers ONLY!!");
    EXPECT_EQ(Find<QComboBox>("comboSelectObject")->count(), 0);
    auto* output = Find<QListView>("List2");
    EXPECT_EQ(output->font().family(), "Courier New");
    EXPECT_EQ(output->font().pointSize(), 9);
    EXPECT_EQ(window.findChild<QWidget*>("lstSCNdata1"), nullptr);
}

TEST_F(MainWindowTest, TileBoxesStayOpposite)
{
    auto* main = Find<QCheckBox>("chkMainTile");
    auto* perimeter = Find<QCheckBox>("chkPerimeterTile");
    for (QCheckBox* clicked : {main, main, perimeter, perimeter, main}) {
        QTest::mouseClick(clicked, Qt::LeftButton);
        EXPECT_NE(main->isChecked(), perimeter->isChecked());
        EXPECT_EQ(app.main.chkMainTile.Checked(), main->isChecked());
    }
}

TEST_F(MainWindowTest, LeavingAScaleBoxCleansIt)
{
    // The box that rules is the one the user can type into.
    // clang-format off
    const std::tuple<bool, const char*, const char*, const char*> rows[] = {
        {true,  "txtObjectScale", "12.3456789", "12.345679"},
        {true,  "txtObjectScale", "0.05",       "0.100000"},
        {false, "txtGridSize",    "2.5",        "2"},
        {false, "txtGridSize",    "abc",        "1"},
    };
    // clang-format on
    auto* useScale = Find<QCheckBox>("chkUseObjectScale");
    auto* elsewhere = Find<QLineEdit>("txtVerticalScale");
    for (const auto& [scaleRules, name, typed, cleaned] : rows) {
        if (useScale->isChecked() != scaleRules)
            QTest::mouseClick(useScale, Qt::LeftButton);
        auto* box = Find<QLineEdit>(name);
        box->setFocus(Qt::TabFocusReason);
        box->selectAll();
        QTest::keyClicks(box, typed);
        EXPECT_EQ(box->text().toStdString(), typed);
        elsewhere->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(box->text().toStdString(), cleaned) << typed;
    }
}

TEST_F(MainWindowTest, WindowsTextBothWays)
{
    auto* name = Find<QLineEdit>("txtMaxObjectName");
    // Keys whose text lies outside ASCII, as a keyboard layout delivers them.
    for (const QString& key : {QString("C"), QString("a"), QString("f"),
                               QString::fromUtf8("\u00e9"), QString::fromUtf8("\u20ac")}) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, key);
        QApplication::sendEvent(name, &press);
    }
    EXPECT_EQ(app.main.txtMaxObjectName.Text(), "Caf\xE9\x80");
    app.main.txtMaxObjectName.SetText("\x93Oak\x94");
    EXPECT_EQ(name->text(), QString::fromUtf8("\u201cOak\u201d"));

    // Script rows come in bursts and are shown once the loop runs.
    for (int i = 0; i < 500; ++i)
        app.main.List2.AddItem("row \x80" + std::to_string(i));
    QApplication::processEvents();
    auto* output = Find<QListView>("List2");
    ASSERT_EQ(output->model()->rowCount(), 500);
    EXPECT_EQ(output->model()->index(499, 0).data().toString(), QString::fromUtf8("row \u20ac499"));
}

TEST_F(MainWindowTest, ProjectLoadFillsTheObjectListAndOpensProcess)
{
    const std::string project = scratch.Write("Valley.prj", "");
    scratch.Write("Valley.scn", "[Environment]\r\nTerrainWidth=5\r\nTerrainWidthScale=3.0\r\n"
                                "[StaticModels]\r\nNumberOfStaticModels=3\r\n"
                                "[Model1]\r\nSLT=Tree_KV_Oak.SLT\r\nPosition=1920,4,2000\r\n"
                                "[Model2]\r\nSLT=Barn.SLT\r\nPosition=1600,0,1700\r\n"
                                "[Model3]\r\nSLT=Fox03.SLB\r\nPosition=1700,0,1800\r\n");
    platform.answers.push_back(project);
    const QPoint dragged = window.pos() + QPoint(7, 9);
    window.move(dragged);
    QTest::mouseClick(Find<QPushButton>("btnBrowseProjectFile"), Qt::LeftButton);
    EXPECT_EQ(window.pos(), dragged);
    QApplication::processEvents();

    auto* combo = Find<QComboBox>("comboSelectObject");
    ASSERT_EQ(combo->count(), 3);
    EXPECT_EQ(combo->itemText(0), "* Option 2:  All Stock Single Bales");
    EXPECT_EQ(combo->itemText(1), "Barn");
    EXPECT_EQ(combo->itemText(2), "Tree");
    EXPECT_EQ(combo->currentText(), "");
    EXPECT_TRUE(Find<QPushButton>("btnProcess")->isEnabled());
    EXPECT_TRUE(Find<QLineEdit>("txtProjectFilePath")->isEnabled());
    EXPECT_EQ(Find<QLineEdit>("txtProjectFilePath")->text(), QString::fromStdString(project));
    EXPECT_TRUE(platform.messages.empty());

    combo->setFocus(Qt::TabFocusReason);
    QTest::mouseClick(Find<QCheckBox>("chkUseTolvarineName"), Qt::LeftButton);
    emit combo->activated(2);
    EXPECT_EQ(app.main.comboSelectObject.Text(), "Tree");
    EXPECT_EQ(Find<QLineEdit>("txtMaxObjectName")->text(), "Tree");
}

TEST_F(MainWindowTest, CloseBoxExitsTheProgram)
{
    window.close();
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(app.main.loaded);
}

TEST(QtPlatformTest, SettingsRoundTripInTheNamedStore)
{
    QStandardPaths::setTestModeEnabled(true);
    gui::QtPlatform platform;
    const std::string key = "Software\\Tolvarine Object Scripter";
    platform.WriteSetting(key, "DefaultDir", "/home/u/caf\xE9");
    EXPECT_EQ(platform.ReadSetting(key, "DefaultDir"), "/home/u/caf\xE9");
    EXPECT_EQ(platform.ReadSetting(key, "NoSuchValue"), "");
#ifndef Q_OS_WIN
    EXPECT_EQ(gui::SettingsLocation(key), "Tolvarine Object Scripter");
#endif
    platform.WriteSetting(key, "DefaultDir", "");
    EXPECT_EQ(platform.ReadSetting(key, "DefaultDir"), "");
}

TEST(QtPlatformTest, FiltersBecomeQtNameFilters)
{
    // clang-format off
    const std::pair<const char*, QStringList> rows[] = {
        {"PRJ File (*.prj)|*.prj",          {"PRJ File (*.prj)"}},
        {"Scripts|*.ms;*.mcr",              {"Scripts (*.ms *.mcr)"}},
        {"MS File (*.ms)|*.ms|All|*.*",     {"MS File (*.ms)", "All (*.*)"}},
        {"",                                {}},
    };
    // clang-format on
    for (const auto& [filter, expected] : rows)
        EXPECT_EQ(gui::QtNameFilters(filter), expected) << filter;
}

TEST(Cp1252Test, ConvertsEveryByteBothWays)
{
    // clang-format off
    const std::pair<std::string, char16_t> rows[] = {
        {"A",    u'A'},    {"\x80", u'\u20AC'}, {"\x81", u'\u0081'}, {"\x8A", u'\u0160'},
        {"\x93", u'\u201C'}, {"\x9F", u'\u0178'}, {"\xA0", u'\u00A0'}, {"\xE9", u'\u00E9'},
        {"\xFF", u'\u00FF'},
    };
    // clang-format on
    for (const auto& [bytes, ch] : rows) {
        EXPECT_EQ(gui::FromCp1252(bytes), QString(QChar(ch))) << int(ch);
        EXPECT_EQ(gui::ToCp1252(QString(QChar(ch))), bytes) << int(ch);
    }
    std::string all;
    for (int b = 0; b < 256; ++b)
        all.push_back(static_cast<char>(b));
    EXPECT_EQ(gui::ToCp1252(gui::FromCp1252(all)), all);
    EXPECT_EQ(gui::ToCp1252(QString::fromUtf8("\u4e2d\U0001F600")), "??");
}

} // namespace
} // namespace tos
