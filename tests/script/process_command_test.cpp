#include "shell/process_command.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

#include "build_fixture.h"

namespace tos {
namespace {

using test::BuildFixture;
using Strings = std::vector<std::string>;
using Pointers = std::vector<std::pair<FormId, int>>;
const Pointers kHourglassAndBack{{FormId::Main, 11}, {FormId::Main, 0}};

// A loaded form: a tree on the main tile and an option row for each stock group;
// the triple bales' model has a look that no turn can be worked out for.
void Loaded(BuildFixture& f)
{
    f.Scene("[Model1]\r\nPosition=1920,0,1920\r\nLookVector=-1,0,0\r\nUpVector=0,1,0\r\n"
            "[Model2]\r\nLookVector=1e303,0,0\r\n");
    // clang-format off
    for (const auto& [list, row] : {std::pair{&MainForm::lstSCNdata2, "Tree|001|001"}, {&MainForm::lstBillboards, "001|Tree.SLT"}, {&MainForm::lstBales, "001|Tree.SLT"},
                                    {&MainForm::lstTripleBales, "002|Tree.SLT"}, {&MainForm::lst55GalDrums_TrashCans, "001|Tree.SLT"}})
        f.Rows(list, {row});
    for (const char* row : {"* Option 1:  All Stock Billboard Banners", "* Option 2:  All Stock Single Bales", "* Option 3:  All Stock Triple Bales", "* Option 4:  All Stock 55Gal Drums/Trash Cans", "Tree"})
        f.app.main.comboSelectObject.Items().AddItem(row);
    // clang-format on
    ConnectProcessEvents(f.app);
}

TEST(ProcessCommand, ChecksTheFormThenRunsTheBuilderOfTheSelection)
{
    // txtMaxFile, txtMaxObjectName, selection; the message; the file written, "" when no
    // builder may run; the rows of List2, which holds one row before.
    // clang-format off
    const std::tuple<const char*, const char*, const char*, std::string, const char*, size_t> rows[] = {
        {"",      "",     "",      "Please specify a Max file",               "", 1},
        {" ",     "",     "",      "Please specify a Max object name",        "", 1},
        {"t.max", " ",    "",      "Please select an Object to process",      "", 1},
        {"t.max", "Tree", "Oak",   "Please select only from the Object List", "", 1},
        {"t.max", "Tree", "Tree ", "Please select only from the Object List", "", 1},
        {"t.max", "Tree", "Tree",  "", "Valley_Main_Tree.ms", 18},
        {"t.max", "Tree", "TREE",  "", "Valley_Main_TREE.ms", 10},
        {"t.max", "Tree", "* Option 1:  All Stock Billboard Banners",      "", "Valley_Main_Billboards.ms", 18},
        {"t.max", "Tree", "* option 2:  ALL STOCK SINGLE BALES",           "", "Valley_Main_Bales.ms", 18},
        {"t.max", "Tree", "* Option 3:  All Stock Triple Bales",           "Unexpected error in BuildTripleBaleScript \n\n 6 - Overflow", "Valley_Main_TripleBales.ms", 16},
        {"t.max", "Tree", "* Option 4:  All Stock 55Gal Drums/Trash Cans", "", "Valley_Main_55GalDrums_TrashCans.ms", 18},
    };
    // clang-format on
    for (const auto& [maxFile, object, selection, message, fileName, size] : rows) {
        SCOPED_TRACE(selection);
        BuildFixture f;
        Loaded(f);
        MainForm& form = f.app.main;
        form.txtMaxFile.SetText(maxFile);
        form.txtMaxObjectName.SetText(object);
        form.comboSelectObject.SetText(selection);
        form.List2.AddItem("former script");
        form.btnProcess.Click.Fire();
        const bool built = *fileName;
        EXPECT_EQ(f.platform.Texts(), message.empty() ? Strings{} : Strings{message});
        // The hourglass only around a builder, and the pointer back after it.
        EXPECT_EQ(f.platform.pointerChanges, built ? kHourglassAndBack : Pointers{});
        EXPECT_EQ(form.List2.Rows().size(), size);
        EXPECT_EQ(f.app.state.ScriptFileName, built ? f.Written(fileName) : "");
        EXPECT_EQ(std::filesystem::exists(f.app.state.ScriptFileName), built && message.empty());
        EXPECT_EQ(form.comboSelectObject.Text(), selection);
    }
}

TEST(ProcessCommand, TellsUnderTheScriptWhatTodays3dsMaxWouldMisreadNeverInABox)
{
    BuildFixture f;
    Loaded(f);
    MainForm& form = f.app.main;
    const std::string found = "3ds Max would stop at line 13: the name Big Tree needs quotes. "
                              "Tick For 3ds Max 2008 and later.";
    // clang-format off
    const std::tuple<const char*, const char*, int, std::string> steps[] = {
        // object     selection  max2008  the line under the script
        {"Big Tree",  "Tree",    0,       found},
        {"Big Tree",  "Oak",     0,       found}, // refused before a build: the line stays
        {"Big Tree",  "Tree",    1,       ""},
        {"Tree",      "Tree",    0,       ""},
    };
    // clang-format on
    for (const auto& [object, selection, max2008, line] : steps) {
        form.txtMaxFile.SetText("t.max");
        form.txtMaxObjectName.SetText(object);
        form.comboSelectObject.SetText(selection);
        form.chkMax2008.SetValue(max2008);
        form.btnProcess.Click.Fire();
        EXPECT_EQ(form.lblScriptCheck.Caption(), line) << object << max2008;
    }
    EXPECT_EQ(f.platform.Texts(), Strings{"Please select only from the Object List"});
}

TEST(ObjectNameModes, TheNameFollowsTheRulingBox)
{
    // Steps: "T+" / "T-" checks or unchecks chkUseTolvarineName, "M+" / "M-" the
    // same for chkUseMaxName; "S:text" selects, "F:text" types into txtMaxFile.
    // clang-format off
    const std::tuple<std::vector<std::string>, const char*, int, int> rows[] = {
        {{"T+", "S:* Option 2:  All Stock Single Bales"},     "* Option 2:  All Stock Single Bales", 1, 0},
        {{"M+", "F:C:\\m\\Bar", "F:C:\\m\\Barn.m"},           "Barn",                                0, 1},
        {{"S:Tree", "T+", "F:a\\Big b.max", "M+"},            "Big b",                               0, 1},
        {{"F:a\\b.max", "M+", "S:Tree", "T+"},                "Tree",                                1, 0},
        {{"S:Tree", "T+", "T-", "S:Oak"},                     "Tree",                                0, 0},
        {{"M+", "F:x.max", "M-", "F:y.max"},                  "x",                                   0, 0},
    };
    // clang-format on
    for (const auto& [steps, name, tolvarine, max] : rows) {
        SCOPED_TRACE(testing::PrintToString(steps));
        BuildFixture f;
        Loaded(f);
        MainForm& form = f.app.main;
        for (const std::string& step : steps) {
            if (step[0] == 'S')
                form.comboSelectObject.SetText(step.substr(2));
            else if (step[0] == 'F')
                form.txtMaxFile.SetText(step.substr(2));
            else
                (step[0] == 'T' ? form.chkUseTolvarineName : form.chkUseMaxName)
                    .SetValue(step[1] == '+');
        }
        EXPECT_EQ(form.txtMaxObjectName.Text(), name);
        EXPECT_EQ(form.chkUseTolvarineName.Value(), tolvarine);
        EXPECT_EQ(form.chkUseMaxName.Value(), max);
        // Every event of the ruling box's control puts the name back; no other event does.
        ComboBox& c = form.comboSelectObject;
        TextBox& t = form.txtMaxFile;
        // clang-format off
        for (const auto& [event, rules] : {std::pair{&c.Change, tolvarine}, {&c.Click, tolvarine}, {&c.DropDown, tolvarine}, {&c.GotFocus, tolvarine}, {&c.LostFocus, tolvarine}, {&c.Scroll, tolvarine},
                                           {&t.Change, max}, {&t.Click, max}, {&t.DblClick, max}, {&t.GotFocus, max}, {&t.LostFocus, max}}) {
            // clang-format on
            form.txtMaxObjectName.SetText("typed");
            event->Fire();
            EXPECT_EQ(form.txtMaxObjectName.Text(), rules ? name : "typed");
        }
    }
}

} // namespace
} // namespace tos
