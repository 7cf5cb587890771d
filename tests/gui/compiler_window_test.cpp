#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

#include "combiner/script_combiner.h"
#include "common/fake_platform.h"
#include "gui/compiler_window.h"
#include "shell/app.h"

namespace tos {
namespace {

class CompilerWindowTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "compiler_window_test";
        static char* argv[] = {name, nullptr};
        qapp_ = std::make_unique<QApplication>(argc, argv);
    }
    // Qt must be gone before the program's static objects are.
    static void TearDownTestSuite() { qapp_.reset(); }

    CompilerWindowTest() : app(platform), window(app, &owner) { ConnectCombinerEvents(app); }

    // Opens the combiner from the main form and runs whileOpen inside its modal loop.
    void OpenAndRun(const std::function<void()>& whileOpen)
    {
        bool ran = false;
        QTimer::singleShot(0, &window, [&] {
            ran = true;
            whileOpen();
            if (window.isVisible())
                window.hide(); // never leave the test stuck in the modal loop
        });
        app.main.btnRunScriptCompiler.Click.Fire();
        EXPECT_TRUE(ran);
        EXPECT_FALSE(app.compiler.visible);
    }

    QListWidget* List() { return window.findChild<QListWidget*>("lstMaxScripts"); }
    QPushButton* Button(const char* name) { return window.findChild<QPushButton*>(name); }

    static inline std::unique_ptr<QApplication> qapp_;
    test::FakePlatform platform;
    App app;
    QWidget owner;
    gui::CompilerWindow window;
};

TEST_F(CompilerWindowTest, MirrorsTheFormModel)
{
    EXPECT_EQ(window.windowTitle(), "Combine Scripts");
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(window.findChild<QGroupBox*>("frameCompiledMaxScript")->title(),
              "Combine MAX Scripts into a Single Script");
    std::vector<QWidget*> tabOrder;
    for (QWidget* w = Button("btnDone")->nextInFocusChain(); tabOrder.size() < 3;
         w = w->nextInFocusChain())
        if (w->focusPolicy() & Qt::TabFocus)
            tabOrder.push_back(w);
    EXPECT_EQ(tabOrder, (std::vector<QWidget*>{List(), Button("btnAddFile"), Button("btnSaveAs")}));
}

TEST_F(CompilerWindowTest, OpensEmptyDoneHidesAndTheNextOpeningIsEmptyAgain)
{
    app.compiler.lstMaxScripts.AddItem("left from before");
    OpenAndRun([&] {
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(window.isModal());
        EXPECT_EQ(List()->count(), 0);
        app.compiler.lstMaxScripts.AddItem("caf\xE9 \x80");
        ASSERT_EQ(List()->count(), 1);
        EXPECT_EQ(List()->item(0)->text(), QString::fromUtf8("café €"));
        QTest::mouseClick(Button("btnDone"), Qt::LeftButton);
        EXPECT_FALSE(window.isVisible());
    });
    OpenAndRun([&] {
        EXPECT_EQ(List()->count(), 0);
        window.close(); // the close box acts as Done
        EXPECT_FALSE(window.isVisible());
    });
}

} // namespace
} // namespace tos
