#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "batch/batch_events.h"
#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"
#include "forms/batch_form.h"
#include "gui/batch_window.h"
#include "gui/main_window.h"
#include "project/scene_fixture.h"
#include "shell/startup.h"

namespace tos {
namespace {

TEST(BatchWindowTest, TheTableMirrorsEveryRowAndForwardsChecksEditsAndPresses)
{
    int argc = 1;
    char arg0[] = "batch_window_test", *argv[] = {arg0, nullptr};
    QApplication qt(argc, argv);
    test::ScratchDir dir;
    test::FakePlatform platform;
    platform.programFolder = std::string(TOS_SOURCE_DIR) + "/resources";
    App app(platform);
    gui::MainWindow main(app);
    gui::BatchWindow window(app.batch, &main);
    ConnectBatchEvents(app);
    Main(app);

    std::vector<test::SceneModel> models;
    for (int i = 0; i < 2100; ++i)
        models.push_back(
            {.value = "Obj" + std::to_string(10000 + i) + ".SLT", .position = "1600,0,1700"});
    dir.Write("Valley.scn", test::SceneText(models));
    platform.dialogAnswers = {dir.Write("Valley.prj", "")};
    app.main.btnBrowseProjectFile.Click.Fire();
    platform.ClearMessages();
    const BatchForm& batch = app.batch;

    QTimer::singleShot(0, &window, [&] {
        // Whatever fails, the modal loop ends with the step.
        const std::unique_ptr<QWidget, void (*)(QWidget*)> closing(&window,
                                                                   [](QWidget* w) { w->hide(); });
        EXPECT_TRUE(window.isVisible() && window.isModal());
        auto* view = window.findChild<QTableView*>("tblRows");
        ASSERT_NE(view, nullptr);
        const QAbstractItemModel* rows = view->model();
        ASSERT_GT(batch.rows.size(), 2000u);
        ASSERT_EQ(rows->rowCount(), static_cast<int>(batch.rows.size()));
        const int scale = static_cast<int>(BatchColumn::Scale);
        EXPECT_EQ(rows->headerData(scale, Qt::Horizontal), BatchHeading(BatchColumn::Scale));
        auto at = [rows](std::size_t row, BatchColumn column) {
            return rows->index(static_cast<int>(row), static_cast<int>(column));
        };
        auto key = [view, &at](std::size_t row, BatchColumn column, Qt::Key pressed) {
            view->scrollTo(at(row, column));
            view->setCurrentIndex(at(row, column));
            QTest::keyClick(view, pressed);
        };

        // The last line is reached and edited like the first.
        const std::size_t last = batch.rows.size() - 1;
        EXPECT_EQ(at(last, BatchColumn::Process).data().toString().toStdString(),
                  batch.rows[last]->selection);
        key(last, BatchColumn::UseMax, Qt::Key_Space);
        EXPECT_TRUE(
            view->viewport()->rect().contains(view->visualRect(at(last, BatchColumn::UseMax))));
        EXPECT_TRUE(batch.rows[last]->chkUseMaxName.Checked());
        key(last, BatchColumn::MaxFile, Qt::Key_F2);
        auto* editor = view->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, "D:\\Red Barn.max");
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall); // the edit is handed over
        EXPECT_EQ(batch.rows[last]->txtMaxFile.Text(), "D:\\Red Barn.max");
        EXPECT_EQ(at(last, BatchColumn::ObjectName).data().toString(), "Red Barn");
        key(last, BatchColumn::Process, Qt::Key_Space);
        EXPECT_EQ(at(last, BatchColumn::Process).data(Qt::CheckStateRole), Qt::Checked);
        // Browse presses the row's button.
        const std::string oak = dir.Write("Oak.max", "");
        platform.dialogAnswers = {oak};
        view->scrollTo(at(1, BatchColumn::Browse));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(at(1, BatchColumn::Browse)).center());
        EXPECT_EQ(batch.rows[1]->txtMaxFile.Text(), oak);

        platform.dialogAnswers = {dir.File("saved.tosbatch")};
        QTest::mouseClick(window.findChild<QWidget*>("btnSave"), Qt::LeftButton);
        EXPECT_TRUE(std::filesystem::exists(dir.File("saved.tosbatch")));
        QTest::mouseClick(window.findChild<QWidget*>("btnRunBatch"), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
        const auto* summary = window.findChild<QListView*>("lstSummary")->model();
        ASSERT_EQ(summary->rowCount(), static_cast<int>(batch.lstSummary.RowCount()));
        EXPECT_EQ(summary->index(0, 0).data().toString().toStdString(), batch.lstSummary.Row(0));
        window.close();
        EXPECT_FALSE(window.isVisible());
    });
    QTest::mouseClick(main.findChild<QWidget*>("btnProcessAll"), Qt::LeftButton);
    EXPECT_TRUE(platform.messages.empty()); // saved before closing: no question
}

} // namespace
} // namespace tos
