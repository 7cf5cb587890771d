#include <gtest/gtest.h>

#include <QApplication>
#include <QListView>
#include <QTest>
#include <QTimer>

#include "combiner/script_combiner.h"
#include "common/fake_platform.h"
#include "forms/app.h"
#include "gui/compiler_window.h"

namespace tos {
namespace {

TEST(CompilerWindowTest, ModalDialogThatOpensEmptyGrowsByItsBorderAndHidesOnDone)
{
    int argc = 1;
    char arg0[] = "compiler_window_test", *argv[] = {arg0, nullptr};
    QApplication qt(argc, argv);
    test::FakePlatform platform;
    App app(platform);
    ConnectCombinerEvents(app);
    gui::CompilerWindow window(app, nullptr);

    const CompilerForm& form = app.compiler;
    EXPECT_EQ(window.windowTitle().toStdString(), form.caption);
    EXPECT_FALSE(window.windowFlags() & Qt::WindowMinMaxButtonsHint);
    // Opens at its designed size, 15 twips a pixel, and can be made larger, not smaller.
    EXPECT_EQ(window.size(), QSize(form.widthTwips / 15, form.heightTwips / 15));
    EXPECT_EQ(window.minimumSize(), window.size());
    auto* list = window.findChild<QListView*>("lstMaxScripts");
    EXPECT_EQ(window.findChild<QWidget*>("frameCompiledMaxScript")->property("title").toString(),
              QString::fromStdString(form.frameCompiledMaxScript.Caption()));
    QStringList tabOrder;
    for (QWidget* w = window.findChild<QWidget*>("btnDone"); tabOrder.size() < 4;
         w = w->nextInFocusChain())
        if (w->focusPolicy() & Qt::TabFocus)
            tabOrder << w->objectName();
    EXPECT_EQ(tabOrder, QStringList({"btnDone", "lstMaxScripts", "btnAddFile", "btnSaveAs"}));

    // Each opening runs a modal loop; the user's part comes from a timer inside it.
    app.compiler.lstMaxScripts.AddItem("left from before");
    const std::function<void()> leaveBy[] = {
        [&] { QTest::mouseClick(window.findChild<QWidget*>("btnDone"), Qt::LeftButton); },
        [&] { window.close(); }, // the close box acts as Done
    };
    for (const auto& leave : leaveBy) {
        QTimer::singleShot(0, &window, [&] {
            EXPECT_TRUE(window.isVisible() && window.isModal());
            // The list repaints once a burst of rows is over.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
            EXPECT_EQ(list->model()->rowCount(), 0);
            // The list takes the room the window gains.
            const QSize listSize = list->size();
            window.resize(window.size() + QSize(300, 200));
            EXPECT_EQ(list->size(), listSize + QSize(300, 200));
            // Rows added behind narrower ones widen every row to the longest; a tab
            // goes on to the next eighth column.
            const QString tabbed = QString(6, u'\t') + QString(10, u'w');
            const QString shown = QString(48, u' ') + QString(10, u'w');
            for (const QStringList& burst : {QStringList{"added"}, {tabbed, QString(50, u'x')}}) {
                for (const QString& row : burst)
                    app.compiler.lstMaxScripts.AddItem(row.toStdString());
                QCoreApplication::processEvents();
            }
            EXPECT_EQ(list->model()->index(1, 0).data().toString(), shown);
            EXPECT_GE(list->visualRect(list->model()->index(0, 0)).width(),
                      list->fontMetrics().horizontalAdvance(shown));
            leave();
            EXPECT_FALSE(window.isVisible());
            window.hide(); // never leave the test stuck in the modal loop
        });
        app.main.btnRunScriptCompiler.Click.Fire();
    }
}

} // namespace
} // namespace tos
