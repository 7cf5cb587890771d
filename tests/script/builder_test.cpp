#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "build_fixture.h"
#include "script/builder.h"
#include "script/stock_builders.h"

namespace tos {
namespace {

using test::BuildFixture;
using test::ReadBytes;

std::string ModelSection(int n, const std::string& position, const std::string& look = "-1,0,0")
{
    return "[Model" + std::to_string(n) + "]\r\nSLT=Tree.SLT\r\nPosition=" + position +
           "\r\nLookVector=" + look + "\r\nUpVector=0,1,0\r\n";
}

// Two models of Tree on the main tile, ready to build.
void TwoTrees(BuildFixture& f, const std::string& secondLook = "0,0,1")
{
    f.Scene(ModelSection(1, "1920,0,1920") + ModelSection(2, "2000,0,1900", secondLook));
    f.Rows(&MainForm::lstSCNdata2, {"Tree|001|001", "Tree|002|002"});
    f.app.main.comboSelectObject.SetText("Tree");
    f.app.main.txtMaxFile.SetText("C:\\m\\tree.max");
    f.app.main.txtMaxObjectName.SetText("Tree");
}

std::string Trap(int number, const char* description, const char* routine = "BuildScript")
{
    return std::string("Unexpected error in ") + routine + " \n\n " + std::to_string(number) +
           " - " + description;
}

TEST(BuildScript, FailuresStopTheBuildWhereTheyArise)
{
    struct Row {
        const char* what;
        std::function<void(BuildFixture&)> setUp;
        void (*build)(App&);
        std::string message;
        int rowsLeft;
        std::string lastRow;
    };
    const auto perimeterAt = [](const char* gridRes, const char* position) {
        return [=](BuildFixture& f) {
            f.Scene(ModelSection(1, position));
            f.app.main.chkMainTile.SetValue(0);
            f.app.main.txtGridRes.SetText(gridRes);
        };
    };
    // clang-format off
    const Row rows[] = {
        {"no tile, grid size rules",   [](BuildFixture& f) { f.app.main.txtGridRes.SetText("0"); f.app.main.chkUseObjectScale.SetValue(0); },
                                       BuildScript, Trap(11, "Division by zero"), 0, ""},
        {"no tile and no grid size",   [](BuildFixture& f) { f.app.main.txtGridRes.SetText("0"); f.app.main.chkUseObjectScale.SetValue(0);
                                                             f.app.main.txtGridSize.SetText("0"); },
                                       BuildScript, Trap(6, "Overflow"), 0, ""},
        {"fold on a tile of 0",        perimeterAt("0", "5,0,0"),         BuildScript, Trap(11, "Division by zero"), 10, ""},
        {"fold past 32767 tiles",      perimeterAt("3", "30720000,0,0"),  BuildScript, Trap(6, "Overflow"), 10, ""},
        {"a copy's turn overflows",    [](BuildFixture& f) { f.Scene(ModelSection(1, "1920,0,1920") + ModelSection(2, "0,0,0", "1e303,0,0")); },
                                       BuildScript, Trap(6, "Overflow"), 18, "$Tree01.pos = [-1920.000000,1920.000000,0.000000]"},
        {"the first object's turn",    [](BuildFixture& f) { f.Scene(ModelSection(1, "1920,0,1920", "1e303,0,0") + ModelSection(2, "0,0,0")); },
                                       BuildScript, Trap(6, "Overflow"), 19, ""},
        {"stock builder's own name",   [](BuildFixture& f) { f.app.main.txtGridRes.SetText("0"); f.app.main.chkUseObjectScale.SetValue(0); },
                                       BuildTripleBaleScript, Trap(11, "Division by zero", "BuildTripleBaleScript"), 0, ""},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        BuildFixture f;
        TwoTrees(f);
        f.Rows(&MainForm::lstTripleBales, {"001|TripleBale01.SLB"});
        row.setUp(f);
        row.build(f.app);
        ASSERT_EQ(f.platform.Texts(), std::vector<std::string>{row.message});
        ASSERT_EQ(f.app.main.List2.ListCount().value(), row.rowsLeft);
        if (row.rowsLeft > 0) {
            EXPECT_EQ(f.app.main.List2.Rows().back(), row.lastRow);
        }
        EXPECT_FALSE(std::filesystem::exists(f.app.state.ScriptFileName));
    }
}

TEST(BuildScript, AnEmptySelectionChangesNothing)
{
    BuildFixture f;
    TwoTrees(f);
    f.app.main.comboSelectObject.SetText("");
    f.app.main.List2.AddItem("former script");
    f.app.state.ScriptFileName = "former";
    BuildScript(f.app);
    EXPECT_EQ(f.platform.Texts(), std::vector<std::string>{"Invalid Object Name"});
    EXPECT_EQ(f.app.main.List2.Rows(), std::vector<std::string>{"former script"});
    EXPECT_EQ(f.app.state.ScriptFileName, "former");
}

TEST(BuildScript, SavingOnlyWhenAskedAndNeverOverAReadOnlyFile)
{
    BuildFixture reference;
    TwoTrees(reference);
    BuildScript(reference.app);
    const std::string script = reference.ScriptBytes();
    ASSERT_EQ(ReadBytes(reference.Written("Valley_Main_Tree.ms")), script);

    struct Row {
        const char* what;
        bool save;
        bool readOnly;
        std::vector<std::string> messages;
    };
    // clang-format off
    const Row rows[] = {
        {"not saved",      false, false, {}},
        {"read-only file", true,  true,  {Trap(75, "Path/File access error")}},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        BuildFixture f;
        TwoTrees(f);
        f.app.state.SaveToFile = row.save;
        const std::string target = f.dir.Write("Valley_Main_Tree.ms", "old script\r\n");
        if (row.readOnly)
            std::filesystem::permissions(target, std::filesystem::perms(0444));
        BuildScript(f.app);
        EXPECT_EQ(f.platform.Texts(), row.messages);
        EXPECT_EQ(f.ScriptBytes(), script);
        EXPECT_EQ(ReadBytes(target), "old script\r\n");
    }
}

} // namespace
} // namespace tos
