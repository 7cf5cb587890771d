#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "batch/batch_events.h"
#include "batch/batch_form.h"
#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"
#include "gui/batch_window.h"
#include "gui/main_window.h"
#include "shell/startup.h"

namespace tos {
namespace {

const std::string kValley = std::string(TOS_SOURCE_DIR) + "/examples/Valley/Valley.scn";

TEST(BatchWindowTest, TableFilledFromTheListEditedSavedAndReadBack)
{
    int argc = 1;
    char arg0[] = "batch_window_test", *argv[] = {arg0, nullptr};
    QApplication qt(argc, argv);
    test::ScratchDir dir;
    test::FakePlatform platform;
    platform.programFolder = std::string(TOS_SOURCE_DIR) + "/resources";
    App app(platform);
    gui::MainWindow main(app);
    BatchForm batch;
    gui::BatchWindow window(batch, &main);
    ConnectBatchEvents(app, batch);
    Main(app);

    dir.Write("Valley.scn", test::ReadBytes(kValley));
    platform.dialogAnswers = {dir.Write("Valley.prj", "")};
    app.main.btnBrowseProjectFile.Click.Fire();
    // The default list beside the project is read at the first opening.
    dir.Write("Valley.tosbatch", "[Batch]\r\nItems=3\r\n"
                                 "[Item1]\r\nSelect=tree\r\nMaxFile=T.max\r\nObjectName=Pine\r\n"
                                 "VerticalScale=1.5\r\n"
                                 "[Item2]\r\nSelect=Orchard\r\nMaxFile=O.max\r\nObjectName=O\r\n"
                                 "[Item3]\r\nSelect=Rock\r\nMaxFile=R.max\r\nObjectName=Rock\r\n"
                                 "Process=0\r\n");
    const std::string saved = dir.File("saved.tosbatch");

    auto find = [&window]<class W = QWidget>(const char* control, const std::string& select)
    {
        // The rows carry their index in their names; the check box shows which row is which.
        for (QCheckBox* box : window.findChildren<QCheckBox*>(QRegularExpression("^chkProcess_")))
            if (box->text().toStdString() == select)
                return window.findChild<W*>(control + box->objectName().mid(10));
        return static_cast<W*>(nullptr);
    };
    QTimer::singleShot(0, &window, [&] {
        EXPECT_TRUE(window.isVisible() && window.isModal());
        // The list's items as written, Orchard too, then the scene's other objects.
        EXPECT_EQ(window.findChildren<QLineEdit*>(QRegularExpression("^txtMaxFile_")).size(),
                  app.main.comboSelectObject.Items().Rows().size() + 1);
        EXPECT_EQ(find.operator()<QLineEdit>("txtMaxFile", "tree")->text(), "T.max");
        EXPECT_EQ(find.operator()<QLineEdit>("txtVerticalScale", "tree")->text(), "1.5");
        EXPECT_TRUE(find.operator()<QCheckBox>("chkProcess", "Orchard")->isChecked());
        EXPECT_FALSE(find.operator()<QCheckBox>("chkProcess", "Rock")->isChecked());
        EXPECT_TRUE(platform.messages.empty());

        // A row filled by hand: the name follows the .max file, as on the main form.
        QTest::mouseClick(find.operator()<QCheckBox>("chkUseMaxName", "Barn"), Qt::LeftButton);
        QTest::keyClicks(find.operator()<QLineEdit>("txtMaxFile", "Barn"), "D:\\Red Barn.max");
        QTest::mouseClick(find.operator()<QCheckBox>("chkProcess", "Barn"), Qt::LeftButton);
        EXPECT_EQ(find.operator()<QLineEdit>("txtObjectName", "Barn")->text(), "Red Barn");

        platform.dialogAnswers = {saved};
        QTest::mouseClick(window.findChild<QWidget*>("btnSave"), Qt::LeftButton);
        // The run goes on unattended: a script that cannot be written is only listed.
        std::filesystem::permissions(dir.Write("Valley_Main_Tree.ms", "kept"),
                                     std::filesystem::perms(0444));
        QTest::mouseClick(window.findChild<QWidget*>("btnRunBatch"), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
        const auto* list = window.findChild<QListView*>("lstSummary")->model();
        QStringList summary;
        for (int i = 0; i < list->rowCount(); ++i)
            summary << list->index(i, 0).data().toString();
        const QString at = QString::fromStdString(dir.Path().string()) + "/Valley_Main_";
        EXPECT_EQ(summary,
                  QStringList({"tree: no script, 1 message",
                               "    TolvarineObjectScripter: Unexpected error in BuildScript",
                               "        75 - Path/File access error",
                               "Orchard: not in this scene", "Rock: not checked",
                               "Barn: " + at + "Barn.ms, 27 rows",
                               "    3ds Max would stop at line 13: the name Red Barn needs "
                               "quotes. Tick For 3ds Max 2008 and later.",
                               "Joined: " + at + "All.ms, 1 script"}));
        window.close();
        EXPECT_FALSE(window.isVisible());
        window.hide(); // never leave the test stuck in the modal loop
    });
    QTest::mouseClick(main.findChild<QWidget*>("btnProcessAll"), Qt::LeftButton);

    const BatchListRead read = ReadBatchList(saved);
    std::vector<std::string> rows;
    for (const BatchItem& item : read.list.items)
        rows.push_back(item.select + "|" + item.maxFile + "|" + item.objectName + "|" +
                       item.verticalScale.value_or("-") + "|" + (item.process ? "1" : "0"));
    EXPECT_EQ(rows, std::vector<std::string>({"tree|T.max|Pine|1.5|1", "Orchard|O.max|O|-|1",
                                              "Rock|R.max|Rock|-|0",
                                              "Barn|D:\\Red Barn.max|Red Barn|-|1"}));
    EXPECT_EQ(test::ReadBytes(dir.File("Valley_Main_All.ms")),
              test::ReadBytes(dir.File("Valley_Main_Barn.ms")) + "\r\n\r\n");
    EXPECT_TRUE(platform.messages.empty()); // no box during the run, none at closing
}

} // namespace
} // namespace tos
