#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "common/shown_texts.h"
#include "forms/app.h"
#include "forms/screen_text.h"
#include "gui/cp1252.h"
#include "gui/main_window.h"
#include "gui/qt_platform.h"
#include "project/scene_fixture.h"
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
    // Loads a scene through the Browse button.
    void Load(const std::vector<test::SceneModel>& models)
    {
        platform.dialogAnswers = {scratch.Write("Valley.prj", "")};
        scratch.Write("Valley.scn", test::SceneText(models));
        QTest::mouseClick(Find("btnBrowseProjectFile"), Qt::LeftButton);
        Settle();
    }
    void ExpectMirrors()
    {
        const auto edit = [this](const std::string& n) { return Find<QLineEdit>(n.c_str()); };
        const QColor grey = QApplication::palette().color(QPalette::Button);
        test::ExpectMirrors(
            app.main, {.text = [&](auto& n) { return gui::ToCp1252(Shown(n.c_str())); },
                       .tip = [&](auto& n) { return gui::ToCp1252(Find(n.c_str())->toolTip()); },
                       .enabled = [&](auto& n) { return Find(n.c_str())->isEnabled(); },
                       .checked =
                           [&](auto& n) {
                               const Qt::CheckState s = Find<QCheckBox>(n.c_str())->checkState();
                               return s == Qt::Checked ? 1 : s == Qt::Unchecked ? 0 : -1;
                           },
                       .readOnly = [&](auto& n) { return edit(n)->isReadOnly(); },
                       .back =
                           [&](auto& n) {
                               const QColor c = edit(n)->palette().color(QPalette::Base);
                               return c == grey ? BackColor::ButtonFace
                                      : c == QApplication::palette().color(QPalette::Base)
                                          ? BackColor::Window
                                          : BackColor(-1);
                           }});
    }
    // Runs what the event loop would run next: repaints after a burst of changes.
    static void Settle()
    {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
    }

    test::ScratchDir scratch;
    test::FakePlatform platform;
    App app{platform};
    gui::MainWindow window{app};
};

// The window shows what the model holds, now and after the model changes; clicks
// go to the model. What the model makes of them is tested there.
TEST_F(MainWindowTest, MirrorsTheModelAndForwardsClicks)
{
    EXPECT_TRUE(window.isVisible() && window.size() == window.minimumSize() &&
                window.maximumSize().width() > 2000 &&
                !(window.windowFlags() & Qt::WindowMaximizeButtonHint));
    // The designed width, 15 twips a pixel.
    EXPECT_EQ(window.windowTitle() + " " + QString::number(window.width()),
              QString::fromStdString(app.main.caption) + " " +
                  QString::number(MainForm::kWidthTwips / 15));
    MainForm& m = app.main;
    ExpectMirrors();
    m.txtGridRes.SetText("7.5");
    m.btnProcess.SetEnabled(true);
    m.lblScriptCheck.SetCaption("3ds Max would stop at line 13: the name Caf\xE9 needs quotes.");
    for (const char* clicked : {"chkPerimeterTile", "chkMax2008", "chkUseObjectScale"})
        QTest::mouseClick(Find(clicked), Qt::LeftButton);
    EXPECT_TRUE(m.chkPerimeterTile.Checked() && m.chkMax2008.Checked() && !m.txtGridSize.Locked());
    // Keys and leaving the box reach the model, which cleans what was typed.
    auto* grid = Find<QLineEdit>("txtGridSize");
    grid->setFocus(Qt::TabFocusReason);
    grid->selectAll();
    QTest::keyClicks(grid, "2.5");
    Find("txtVerticalScale")->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(m.txtGridSize.Text() + "|" + grid->text().toStdString(), "2|2");
    window.resize(1400, window.height()); // the check line shows whole where there is room
    Settle();
    ExpectMirrors();
    EXPECT_EQ(Find("lblScriptCheck")->toolTip(), gui::FromCp1252(m.lblScriptCheck.Caption()));

    // Each list shows its control's face as the model chooses it, and the script list
    // stays fixed-pitch.
    const QStringList installed = QFontDatabase::families();
    const Control* lists[] = {&m.List2, &m.comboSelectObject};
    for (const Control* control : lists) {
        const QFont font = Find(control->Name().c_str())->font();
        const std::string face = ChooseFace(control->GetFont().name, [&](const std::string& f) {
            return installed.contains(QString::fromStdString(f), Qt::CaseInsensitive);
        });
        EXPECT_EQ(font.family().toStdString() + " " + std::to_string(font.pointSize()),
                  face + " " + std::to_string(control->GetFont().points));
    }
    EXPECT_TRUE(QFontInfo(Find("List2")->font()).fixedPitch());
    // The close box does what Exit does.
    window.close();
    EXPECT_FALSE(window.isVisible() || app.main.loaded);
}

TEST_F(MainWindowTest, ProjectLoadFillsTheObjectListAndWindowsTextGoesBothWays)
{
    // A window the user has dragged stays where it is.
    const QPoint dragged = window.pos() + QPoint(7, 9);
    window.move(dragged);
    Load({{"Tree_KV_Oak.SLT", "1920,4,2000"}, {"Fox03.SLB", "1700,0,1800"}});
    EXPECT_EQ(window.pos(), dragged);
    auto* combo = Find<QComboBox>("comboSelectObject");
    QStringList items;
    for (const std::string& row : app.main.comboSelectObject.Items().Rows())
        items << gui::FromCp1252(row);
    EXPECT_EQ(combo->count(), 2);
    for (int row = 0; row < std::max(combo->count(), int(items.size())); ++row)
        EXPECT_EQ(combo->itemText(row), items.value(row)) << row;
    EXPECT_TRUE(app.main.btnProcess.Enabled() && platform.messages.empty());
    ExpectMirrors();
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

TEST_F(MainWindowTest, ScriptListShowsEveryRowWholeAndObjectListDropsDownWideEnough)
{
    // Forty copies of Tree, and thirty objects of one copy each, the last with a long name.
    const std::string longStem = "Tree_" + std::string(90, 'w');
    std::vector<test::SceneModel> models;
    for (int n = 1; n <= 70; ++n)
        models.push_back({(n <= 40   ? "Tree"
                           : n == 70 ? longStem
                                     : "Stem" + std::to_string(n)) +
                              ".SLT",
                          std::to_string(1600 + n) + ",0,1700"});
    Load(models);
    // A copy row names the object twice, so it is longer than the last row.
    app.main.txtMaxFile.SetText("C:\\m\\tree.max");
    app.main.txtMaxObjectName.SetText(std::string(150, 'T'));
    app.main.comboSelectObject.SetText("Tree");
    auto* list = Find<QListView>("List2");
    const QFontMetrics metrics(list->font());
    for (int run = 0; run < 2; ++run) {
        // The user has read the former script down to its end, far to the right.
        list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
        list->horizontalScrollBar()->setValue(list->horizontalScrollBar()->maximum());
        QTest::mouseClick(Find("btnProcess"), Qt::LeftButton);
        Settle();
        const int rows = list->model()->rowCount();
        ASSERT_EQ(rows, static_cast<int>(app.main.List2.RowCount()));
        int longest = 0;
        for (int row = 0; row < rows; ++row) {
            const QString text = list->model()->index(row, 0).data().toString();
            EXPECT_GE(list->visualRect(list->model()->index(row, 0)).width(),
                      metrics.horizontalAdvance(text))
                << row;
            longest = std::max(longest, metrics.horizontalAdvance(text));
        }
        EXPECT_GT(longest, list->viewport()->width());
        EXPECT_GT(list->horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(list->indexAt(QPoint(1, 1)).row(), 0);
        EXPECT_EQ(list->horizontalScrollBar()->value(), 0);
    }

    const QSize listSize = list->size();
    const int creditsGap = window.height() - Find("Frame1")->geometry().bottom();
    window.resize(window.size() + QSize(200, 150));
    EXPECT_EQ(list->size(), listSize + QSize(200, 150));
    EXPECT_EQ(window.height() - Find("Frame1")->geometry().bottom(), creditsGap);

    // The object list drops down wide enough for its longest row; its scrolling reaches the model.
    auto* combo = Find<QComboBox>("comboSelectObject");
    ASSERT_EQ(combo->count(), 31);
    combo->showPopup();
    Settle();
    QAbstractItemView* popup = combo->view();
    EXPECT_GT(popup->viewport()->width(),
              QFontMetrics(popup->font()).horizontalAdvance(QString::fromStdString(longStem)));
    int scrolls = 0;
    app.main.comboSelectObject.Scroll.Connect([&scrolls] { ++scrolls; });
    popup->verticalScrollBar()->setValue(popup->verticalScrollBar()->maximum());
    combo->hidePopup();
    EXPECT_EQ(scrolls, 1);
}

// The hourglass is the pointer of the form that works; a box it shows while it
// works has the normal pointer.
TEST_F(MainWindowTest, HourglassStaysOnTheFormNotOnItsBoxes)
{
    gui::QtPlatform qtPlatform;
    App busy(qtPlatform);
    gui::MainWindow busyWindow(busy);
    qtPlatform.SetFormWidget(FormId::Main, &busyWindow);
    busyWindow.show();
    busy.SetMousePointer(FormId::Main, kPointerHourglass);
    bool overridden = true;
    Qt::CursorShape okPointer = Qt::WaitCursor;
    QTimer::singleShot(0, &busyWindow, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        overridden = QApplication::overrideCursor() != nullptr;
        okPointer = box->button(QMessageBox::Ok)->cursor().shape();
        box->accept();
    });
    busy.Message("Working");
    EXPECT_FALSE(overridden);
    EXPECT_EQ(okPointer, Qt::ArrowCursor);
    EXPECT_EQ(busyWindow.cursor().shape(), Qt::WaitCursor);
    busy.SetMousePointer(FormId::Main, kPointerDefault);
    EXPECT_EQ(busyWindow.cursor().shape(), Qt::ArrowCursor);
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
