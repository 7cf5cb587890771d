#include <gtest/gtest.h>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "shell/app.h"
#include "shell/common_dialog.h"
#include "shell/form_events.h"
#include "shell/startup.h"

namespace tos {
namespace {

struct FormEventsTest : ::testing::Test {
    FormEventsTest() { Main(app); }
    // A user's click on a check box turns it over.
    static void Click(CheckBox& box) { box.SetValue(box.Checked() ? 0 : 1); }

    test::FakePlatform platform;
    App app{platform};
};

TEST_F(FormEventsTest, TileBoxesStayOpposite)
{
    CheckBox& main = app.main.chkMainTile;
    CheckBox& perimeter = app.main.chkPerimeterTile;
    struct Row {
        CheckBox* clicked;
        int mainAfter;
    };
    // clang-format off
    const Row rows[] = {
        {&main,      0},
        {&main,      1},
        {&perimeter, 0},
        {&perimeter, 1},
        {&perimeter, 0},
        {&main,      1},
    };
    // clang-format on
    for (const Row& row : rows) {
        Click(*row.clicked);
        EXPECT_EQ(main.Value(), row.mainAfter);
        EXPECT_EQ(perimeter.Value(), 1 - row.mainAfter);
    }
}

TEST_F(FormEventsTest, LostFocusCleansTheScaleAndGridBoxes)
{
    struct Row {
        TextBox* box;
        const char* typed;
        const char* cleaned;
    };
    TextBox* grid = &app.main.txtGridSize;
    TextBox* scale = &app.main.txtObjectScale;
    // clang-format off
    const Row rows[] = {
        {grid,  "",           "1"},
        {grid,  "abc",        "1"},
        {grid,  "0.5",        "1"},
        {grid,  "1.5",        "2"},
        {grid,  "2.5",        "2"},
        {grid,  "768.4",      "768"},
        {grid,  "-40",        "1"},
        {grid,  "12abc",      "12"},
        {grid,  "1e400",      "1e400"}, // past the range: the routine ends silently
        {scale, "",           "0.100000"},
        {scale, "0.05",       "0.100000"},
        {scale, "12.3456789", "12.345679"},
        {scale, "-3",         "0.100000"},
        {scale, "250",        "250.000000"},
    };
    // clang-format on
    for (const Row& row : rows) {
        row.box->SetText(row.typed);
        row.box->LostFocus.Fire();
        EXPECT_EQ(row.box->Text(), row.cleaned) << row.typed;
    }
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FormEventsTest, ScaleAndSaveBoxes)
{
    MainForm& f = app.main;
    for (int value : {0, 1, 0}) {
        f.chkUseObjectScale.SetValue(value);
        const bool scaleRules = value == 1;
        EXPECT_EQ(f.txtObjectScale.Locked(), !scaleRules);
        EXPECT_EQ(f.txtGridSize.Locked(), scaleRules);
        EXPECT_EQ(f.txtObjectScale.Back(), scaleRules ? BackColor::Window : BackColor::ButtonFace);
        EXPECT_EQ(f.txtGridSize.Back(), scaleRules ? BackColor::ButtonFace : BackColor::Window);
    }
    EXPECT_EQ(f.txtObjectScale.Text(), "100.000000");
    EXPECT_EQ(f.txtGridSize.Text(), "768");

    Click(f.chkSave);
    EXPECT_FALSE(app.state.SaveToFile);
    Click(f.chkSave);
    EXPECT_TRUE(app.state.SaveToFile);
}

TEST_F(FormEventsTest, DialogGivesOnlyAnExistingFile)
{
    test::ScratchDir dir;
    const std::string existing = dir.Write("Valley.prj", "");
    struct Row {
        std::string answer;
        std::string result;
    };
    // clang-format off
    const Row rows[] = {
        {"",                     ""},      // Cancel
        {dir.File("New.prj"),    ""},      // a name typed into the save form
        {dir.Path().string(),    ""},      // a folder
        {existing,               existing},
    };
    // clang-format on
    for (const Row& row : rows) {
        platform.dialogAnswers = {row.answer};
        EXPECT_EQ(ShowCommonDialog(app, FormId::Compiler, "Title", "/start", "MS File (*.ms)|*.ms",
                                   Int16(1), true, ""),
                  row.result)
            << row.answer;
        const FileDialogRequest& asked = platform.dialogRequests.back();
        EXPECT_EQ(asked.form, FormId::Compiler);
        EXPECT_EQ(asked.title, "Title");
        EXPECT_EQ(asked.initialFolder, "/start");
        EXPECT_EQ(asked.filter, "MS File (*.ms)|*.ms");
        EXPECT_TRUE(asked.save);
        EXPECT_EQ(asked.flags, 4096);
    }
}

TEST_F(FormEventsTest, CancelledMaxBrowseChangesNothing)
{
    app.main.txtMaxFile.SetText("C:\\old.max");
    btnBrowseMaxFile_Click(app);
    ASSERT_EQ(platform.dialogRequests.size(), 1u);
    EXPECT_EQ(platform.dialogRequests[0].title, "Select Max Object File");
    EXPECT_EQ(platform.dialogRequests[0].filter, "MAX File (*.max)|*.max");
    EXPECT_FALSE(platform.dialogRequests[0].save);
    EXPECT_EQ(app.state.ObjectDir, "/opt/tos");
    EXPECT_TRUE(platform.settings.empty());
    EXPECT_EQ(app.main.txtMaxFile.Text(), "C:\\old.max");
}

TEST(HelpTest, OpensThePageBesideTheProgramOrSaysWhyNot)
{
    test::ScratchDir withPage;
    withPage.Write("TOS_Help.html", "<html></html>");
    test::ScratchDir withoutPage;
    struct Row {
        const test::ScratchDir* folder;
        bool handlerWorks;
        std::size_t opened;
        bool message;
    };
    // clang-format off
    const Row rows[] = {
        {&withPage,    true,  1, false},
        {&withPage,    false, 1, true},
        {&withoutPage, true,  0, true},
    };
    // clang-format on
    for (const Row& row : rows) {
        test::FakePlatform platform;
        platform.programFolder = row.folder->Path().string();
        platform.openSucceeds = row.handlerWorks;
        App app(platform);
        Main(app);
        app.main.btnViewHelp.Click.Fire();
        ASSERT_EQ(platform.openedDocuments.size(), row.opened);
        if (row.opened) {
            EXPECT_EQ(platform.openedDocuments[0], row.folder->File("TOS_Help.html"));
        }
        EXPECT_EQ(platform.Texts(), row.message
                                        ? std::vector<std::string>{"Error launching help file."}
                                        : std::vector<std::string>{});
    }
}

} // namespace
} // namespace tos
