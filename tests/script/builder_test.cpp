#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <tuple>

#include "build_fixture.h"
#include "script/builder.h"
#include "script/stock_builders.h"

namespace tos {
namespace {

using test::BuildFixture;
using test::ReadBytes;
using Strings = std::vector<std::string>;

std::string Model(int n, const std::string& position, const std::string& look)
{
    return "[Model" + std::to_string(n) + "]\r\nPosition=" + position + "\r\nLookVector=" + look +
           "\r\nUpVector=0,1,0\r\n";
}

// Each build starts from two trees on the main tile, a former script in List2 and a
// former file of the name the build takes.
TEST(BuildScript, StopsWhereAFailureArisesAndNeverSpoilsAFormerFile)
{
    using SetUp = std::function<void(BuildFixture&, MainForm&)>;
    const auto perimeterAt = [](const char* gridRes, const char* x) -> SetUp {
        return [=](BuildFixture& f, MainForm& form) {
            f.Scene(Model(1, std::string(x) + ",0,0", "-1,0,0"));
            form.chkMainTile.SetValue(0);
            form.txtGridRes.SetText(gridRes);
        };
    };
    const SetUp noTile = [](BuildFixture&, MainForm& form) {
        form.txtGridRes.SetText("0");
        form.chkUseObjectScale.SetValue(0);
    };
    // clang-format off
    const std::tuple<const char*, SetUp, void (*)(App&), Strings, const char*, int, std::string, bool> rows[] = {
        {"saved over a former file", [](BuildFixture&, MainForm&) {},
                                     BuildScript, {},                                   "Valley_Main_Tree.ms", 23, "rotate $Tree (angleaxis 90 [0,0,1])", true},
        {"not saved",                [](BuildFixture& f, MainForm&) { f.app.state.SaveToFile = false; },
                                     BuildScript, {},                                   "Valley_Main_Tree.ms", 23, "rotate $Tree (angleaxis 90 [0,0,1])", false},
        {"read-only file",           [](BuildFixture& f, MainForm&) { std::filesystem::permissions(f.Written("Valley_Main_Tree.ms"), std::filesystem::perms(0444)); },
                                     BuildScript, {"Unexpected error in BuildScript \n\n 75 - Path/File access error"}, "Valley_Main_Tree.ms", 23, "rotate $Tree (angleaxis 90 [0,0,1])", false},
        {"empty selection",          [](BuildFixture&, MainForm& form) { form.comboSelectObject.SetText(""); },
                                     BuildScript, {"Invalid Object Name"},              "Valley_Main_Tree.ms", 1,  "former script", false},
        {"no tile, grid size rules", noTile,
                                     BuildScript, {"Unexpected error in BuildScript \n\n 11 - Division by zero"},      "Valley_Main_Tree.ms", 0,  "", false},
        {"no tile and no grid size", [&](BuildFixture& f, MainForm& form) { noTile(f, form); form.txtGridSize.SetText("0"); },
                                     BuildScript, {"Unexpected error in BuildScript \n\n 6 - Overflow"},               "Valley_Main_Tree.ms", 0,  "", false},
        {"fold on a tile of 0",      perimeterAt("0", "5"),
                                     BuildScript, {"Unexpected error in BuildScript \n\n 11 - Division by zero"},      "Valley_Per_Tree.ms",  10, "", false},
        {"fold past 32767 tiles",    perimeterAt("3", "30720000"),
                                     BuildScript, {"Unexpected error in BuildScript \n\n 6 - Overflow"},               "Valley_Per_Tree.ms",  10, "", false},
        {"a copy's turn overflows",  [](BuildFixture& f, MainForm&) { f.Scene(Model(1, "1920,0,1920", "-1,0,0") + Model(2, "0,0,0", "1e303,0,0")); },
                                     BuildScript, {"Unexpected error in BuildScript \n\n 6 - Overflow"},               "Valley_Main_Tree.ms", 18, "$Tree01.pos = [-1920.000000,1920.000000,0.000000]", false},
        {"the first object's turn",  [](BuildFixture& f, MainForm&) { f.Scene(Model(1, "1920,0,1920", "1e303,0,0") + Model(2, "0,0,0", "-1,0,0")); },
                                     BuildScript, {"Unexpected error in BuildScript \n\n 6 - Overflow"},               "Valley_Main_Tree.ms", 19, "", false},
        {"stock builder's own name", noTile,
                                     BuildTripleBaleScript, {"Unexpected error in BuildTripleBaleScript \n\n 11 - Division by zero"}, "Valley_Main_TripleBales.ms", 0, "", false},
    };
    // clang-format on
    for (const auto& [what, setUp, build, messages, fileName, rowsLeft, lastRow, replaced] : rows) {
        SCOPED_TRACE(what);
        BuildFixture f;
        MainForm& form = f.app.main;
        f.Scene(Model(1, "1920,0,1920", "0,0,-1") + Model(2, "2000,0,1900", "0,0,1"));
        f.Rows(&MainForm::lstSCNdata2, {"Tree|001|001", "Tree|002|002"});
        f.Rows(&MainForm::lstTripleBales, {"001|TripleBale01.SLB"});
        form.comboSelectObject.SetText("Tree");
        form.txtMaxFile.SetText("C:\\m\\tree.max");
        form.txtMaxObjectName.SetText("Tree");
        form.List2.AddItem("former script");
        f.app.state.ScriptFileName = f.dir.Write(fileName, "old script\r\n");
        setUp(f, form);
        build(f.app);
        EXPECT_EQ(f.platform.Texts(), messages);
        EXPECT_EQ(f.app.state.ScriptFileName, f.Written(fileName));
        ASSERT_EQ(form.List2.ListCount().value(), rowsLeft);
        EXPECT_EQ(rowsLeft ? form.List2.Rows().back() : "", lastRow);
        EXPECT_EQ(ReadBytes(f.Written(fileName)), replaced ? f.ScriptBytes() : "old script\r\n");
    }
}

// The largest record list, every row a copy of one object: the 16-bit copy
// counter reaches 32,767 without overflow and the script takes every row.
TEST(BuildScript, CountsCopiesUpToTheLargestRecordList)
{
    BuildFixture f;
    std::string scene;
    std::vector<std::string> rows;
    for (int n = 1; n <= ListBox::kMaxRows; ++n) {
        scene += Model(n, "1600,0,1700", "0,0,-1");
        rows.push_back("Tree|" + std::to_string(n) + "|001");
    }
    f.Scene(scene);
    f.Rows(&MainForm::lstSCNdata2, rows);
    MainForm& form = f.app.main;
    form.comboSelectObject.SetText("Tree");
    form.txtMaxFile.SetText("C:\\m\\tree.max");
    form.txtMaxObjectName.SetText("Tree");
    BuildScript(f.app);
    EXPECT_TRUE(f.platform.Texts().empty());
    // Head 10 rows, first object 6, 32,766 copies of 4, the first object's turn 3.
    ASSERT_EQ(form.List2.RowCount(), 10u + 6 + 32766 * 4 + 3);
    EXPECT_EQ(form.List2.Row(form.List2.RowCount() - 7),
              "copy $Tree isSelected:on name:\"Tree32766\"");
    EXPECT_EQ(ReadBytes(f.Written("Valley_Main_Tree.ms")), f.ScriptBytes());
}

} // namespace
} // namespace tos
