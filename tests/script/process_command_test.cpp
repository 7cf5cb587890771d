#include "shell/process_command.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "build_fixture.h"

namespace tos {
namespace {

using test::BuildFixture;

using Pointers = std::vector<std::pair<FormId, int>>;
const Pointers kHourglassAndBack{{FormId::Main, 11}, {FormId::Main, 0}};

// A loaded form: one tree on the main tile, an option row for each stock group.
void Loaded(BuildFixture& f)
{
    f.Scene("[Model1]\r\nSLT=Tree.SLT\r\nPosition=1920,0,1920\r\nLookVector=-1,0,0\r\n"
            "UpVector=0,1,0\r\n");
    f.Rows(&MainForm::lstSCNdata2, {"Tree|001|001"});
    for (auto list : {&MainForm::lstBillboards, &MainForm::lstBales, &MainForm::lstTripleBales,
                      &MainForm::lst55GalDrums_TrashCans})
        f.Rows(list, {"001|Tree.SLT"});
    for (const char* row :
         {"* Option 1:  All Stock Billboard Banners", "* Option 2:  All Stock Single Bales",
          "* Option 3:  All Stock Triple Bales", "* Option 4:  All Stock 55Gal Drums/Trash Cans",
          "Tree"})
        f.app.main.comboSelectObject.Items().AddItem(row);
    ConnectProcessEvents(f.app);
}

TEST(ProcessCommand, ChecksTheFormInOrderAndTouchesNothing)
{
    struct Row {
        const char* maxFile;
        const char* object;
        const char* selection;
        const char* message;
    };
    // clang-format off
    const Row rows[] = {
        {"",        "",     "",      "Please specify a Max file"},
        {"",        "Tree", "Tree",  "Please specify a Max file"},
        {" ",       "",     "",      "Please specify a Max object name"},
        {"t.max",   " ",    "",      "Please select an Object to process"},
        {"t.max",   "Tree", "Oak",   "Please select only from the Object List"},
        {"t.max",   "Tree", "Tree ", "Please select only from the Object List"},
        {"t.max",   "Tree", "* Option 5:  All Stock Single Bales", "Please select only from the Object List"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.message);
        BuildFixture f;
        Loaded(f);
        f.app.main.txtMaxFile.SetText(row.maxFile);
        f.app.main.txtMaxObjectName.SetText(row.object);
        f.app.main.comboSelectObject.SetText(row.selection);
        f.app.main.List2.AddItem("former script");
        f.app.main.btnProcess.Click.Fire();
        EXPECT_EQ(f.platform.Texts(), std::vector<std::string>{row.message});
        EXPECT_TRUE(f.platform.pointerChanges.empty());
        EXPECT_EQ(f.app.main.List2.Rows(), std::vector<std::string>{"former script"});
        EXPECT_EQ(f.app.main.comboSelectObject.Text(), row.selection);
    }
}

TEST(ProcessCommand, HandsTheSelectionToItsBuilderUnderTheHourglass)
{
    struct Row {
        const char* selection;
        const char* fileName;
        size_t rows;
    };
    // clang-format off
    const Row rows[] = {
        {"Tree",                                          "Valley_Main_Tree.ms",                 18},
        {"TREE",                                          "Valley_Main_TREE.ms",                 10},
        {"* Option 1:  All Stock Billboard Banners",      "Valley_Main_Billboards.ms",           18},
        {"* option 2:  ALL STOCK SINGLE BALES",           "Valley_Main_Bales.ms",                18},
        {"* Option 3:  All Stock Triple Bales",           "Valley_Main_TripleBales.ms",          18},
        {"* Option 4:  All Stock 55Gal Drums/Trash Cans", "Valley_Main_55GalDrums_TrashCans.ms", 18},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.selection);
        BuildFixture f;
        Loaded(f);
        f.app.main.txtMaxFile.SetText("t.max");
        f.app.main.txtMaxObjectName.SetText("Tree");
        f.app.main.comboSelectObject.SetText(row.selection);
        f.app.main.btnProcess.Click.Fire();
        EXPECT_TRUE(f.platform.messages.empty());
        EXPECT_EQ(f.platform.pointerChanges, kHourglassAndBack);
        EXPECT_EQ(f.app.main.mousePointer, 0);
        EXPECT_EQ(f.app.state.ScriptFileName, f.Written(row.fileName));
        EXPECT_TRUE(std::filesystem::exists(f.Written(row.fileName)));
        EXPECT_EQ(f.app.main.List2.Rows().size(), row.rows);
    }
}

TEST(ProcessCommand, PointerComesBackAfterABuilderFailure)
{
    BuildFixture f;
    Loaded(f);
    f.app.main.txtMaxFile.SetText("t.max");
    f.app.main.txtMaxObjectName.SetText("Tree");
    f.app.main.comboSelectObject.SetText("Tree");
    f.app.main.txtGridRes.SetText("0");
    f.app.main.chkUseObjectScale.SetValue(0);
    f.app.main.btnProcess.Click.Fire();
    EXPECT_EQ(
        f.platform.Texts(),
        std::vector<std::string>{"Unexpected error in BuildScript \n\n 11 - Division by zero"});
    EXPECT_EQ(f.platform.pointerChanges, kHourglassAndBack);
}

TEST(ObjectNameModes, TheNameFollowsTheRulingBox)
{
    enum Step { CheckTolvarine, CheckMax, UncheckTolvarine, UncheckMax, Select, TypeMaxFile };
    struct Row {
        std::vector<std::pair<Step, const char*>> steps;
        const char* name;
        int tolvarine;
        int max;
    };
    // clang-format off
    const Row rows[] = {
        {{{Select, "Tree"}, {CheckTolvarine, ""}},                                  "Tree",                     1, 0},
        {{{CheckTolvarine, ""}, {Select, "* Option 2:  All Stock Single Bales"}},   "* Option 2:  All Stock Single Bales", 1, 0},
        {{{CheckTolvarine, ""}, {TypeMaxFile, "C:\\m\\Big Tree.max"}},              "",                         1, 0},
        {{{TypeMaxFile, "C:\\m\\Big Tree.max"}, {CheckMax, ""}},                    "Big Tree",                 0, 1},
        {{{CheckMax, ""}, {TypeMaxFile, "C:\\m\\Bar"}, {TypeMaxFile, "C:\\m\\Barn.m"}}, "Barn",                0, 1},
        {{{CheckMax, ""}, {TypeMaxFile, "C:\\m\\"}},                                "",                         0, 1},
        {{{Select, "Tree"}, {CheckTolvarine, ""}, {TypeMaxFile, "a\\b.max"}, {CheckMax, ""}}, "b",            0, 1},
        {{{TypeMaxFile, "a\\b.max"}, {CheckMax, ""}, {Select, "Tree"}, {CheckTolvarine, ""}}, "Tree",         1, 0},
        {{{Select, "Tree"}, {CheckTolvarine, ""}, {UncheckTolvarine, ""}, {Select, "Oak"}}, "Tree",           0, 0},
        {{{CheckMax, ""}, {TypeMaxFile, "x.max"}, {UncheckMax, ""}, {TypeMaxFile, "y.max"}}, "x",             0, 0},
    };
    // clang-format on
    for (const Row& row : rows) {
        BuildFixture f;
        Loaded(f);
        MainForm& form = f.app.main;
        for (const auto& [step, text] : row.steps) {
            switch (step) {
            case CheckTolvarine:
                form.chkUseTolvarineName.SetValue(1);
                break;
            case CheckMax:
                form.chkUseMaxName.SetValue(1);
                break;
            case UncheckTolvarine:
                form.chkUseTolvarineName.SetValue(0);
                break;
            case UncheckMax:
                form.chkUseMaxName.SetValue(0);
                break;
            case Select:
                form.comboSelectObject.SetText(text);
                break;
            case TypeMaxFile:
                form.txtMaxFile.SetText(text);
                break;
            }
        }
        EXPECT_EQ(form.txtMaxObjectName.Text(), row.name) << &row - rows;
        EXPECT_EQ(form.chkUseTolvarineName.Value(), row.tolvarine) << &row - rows;
        EXPECT_EQ(form.chkUseMaxName.Value(), row.max) << &row - rows;
    }
}

TEST(ObjectNameModes, EveryEventOfTheTwoBoxesRunsTheirRoutine)
{
    BuildFixture f;
    Loaded(f);
    MainForm& form = f.app.main;
    form.chkUseTolvarineName.SetValue(1);
    form.comboSelectObject.SetText("Tree");
    ComboBox& combo = form.comboSelectObject;
    for (Event* e : {&combo.Change, &combo.Click, &combo.DropDown, &combo.GotFocus,
                     &combo.LostFocus, &combo.Scroll}) {
        form.txtMaxObjectName.SetText("typed");
        e->Fire();
        EXPECT_EQ(form.txtMaxObjectName.Text(), "Tree");
    }
    form.txtMaxFile.SetText("C:\\m\\Rock.max");
    form.chkUseMaxName.SetValue(1);
    TextBox& maxFile = form.txtMaxFile;
    for (Event* e : {&maxFile.Change, &maxFile.Click, &maxFile.DblClick, &maxFile.GotFocus,
                     &maxFile.LostFocus}) {
        form.txtMaxObjectName.SetText("typed");
        e->Fire();
        EXPECT_EQ(form.txtMaxObjectName.Text(), "Rock");
    }
}

} // namespace
} // namespace tos
