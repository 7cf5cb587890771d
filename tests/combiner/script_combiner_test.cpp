#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "combiner/script_combiner.h"
#include "common/fake_platform.h"
#include "common/scratch.h"
#include "shell/app.h"

namespace tos {
namespace {

using Rows = std::vector<std::string>;

class CombinerTest : public ::testing::Test {
protected:
    CombinerTest() : app(platform)
    {
        app.state.DefaultDir = dir.Path().string();
        ConnectCombinerEvents(app);
    }

    // Presses a button of the form, the dialog answering path ("" cancels).
    void Press(Button& button, const std::string& path)
    {
        platform.dialogAnswers.push_back(path);
        button.Click.Fire();
    }
    void Add(const std::string& path) { Press(app.compiler.btnAddFile, path); }
    Rows ListRows() const { return app.compiler.lstMaxScripts.Rows(); }

    test::FakePlatform platform;
    test::ScratchDir dir;
    App app;
};

TEST_F(CombinerTest, ReadingRulesGiveTheRows)
{
    struct Case {
        const char* name;
        std::string bytes;
        int times; // how often the file is added
        Rows rows;
    };
    // clang-format off
    const Case cases[] = {
        {"three CR LF lines", "a\r\nb\r\nc\r\n", 1, {"a", "b", "c", "", ""}},
        {"CR alone",          "a\rb\rc\r",       1, {"a", "b", "c", "", ""}},
        {"LF alone",          "a\nb\nc\n",       1, {"a\nb\nc\n", "", ""}},
        {"no final line end", "a\r\nlast",       1, {"a", "last", "", ""}},
        {"empty file",        "",                1, {"", ""}},
        {"CR CR LF",          "a\r\r\nb",        1, {"a", "", "b", "", ""}},
        {"LF after CR LF",    "a\r\n\nb\r\n",    1, {"a", "\nb", "", ""}},
        {"same file twice",   "a\r\nb",          2, {"a", "b", "", "", "a", "b", "", ""}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        app.compiler.lstMaxScripts.Clear();
        const std::string path = dir.Write("in.ms", c.bytes);
        for (int i = 0; i < c.times; ++i)
            Add(path);
        EXPECT_EQ(ListRows(), c.rows);
    }
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CombinerTest, DialogsAskForScriptsInTheDefaultFolderUnderTheHourglass)
{
    Add(dir.Write("s.ms", "x\r\n"));
    Press(app.compiler.btnSaveAs, dir.Write("out.ms", ""));
    ASSERT_EQ(platform.dialogRequests.size(), 2u);
    EXPECT_EQ(platform.dialogRequests[0].title, "Open MAX Script File (MS)");
    EXPECT_EQ(platform.dialogRequests[1].title, "Save Compiled MAX Script As... (MS)");
    for (const auto& r : platform.dialogRequests) {
        EXPECT_EQ(r.form, FormId::Compiler);
        EXPECT_EQ(r.save, &r == &platform.dialogRequests[1]);
        EXPECT_EQ(r.initialFolder, app.state.DefaultDir);
        EXPECT_EQ(r.filter, "MS File (*.ms)|*.ms");
    }
    const std::vector<std::pair<FormId, int>> pointers{{FormId::Compiler, 11},
                                                       {FormId::Compiler, 0},
                                                       {FormId::Compiler, 11},
                                                       {FormId::Compiler, 0}};
    EXPECT_EQ(platform.pointerChanges, pointers);
}

TEST_F(CombinerTest, SavingWritesEveryRowWithCrLfAndKeepsTheList)
{
    const std::string lockedFailure =
        "Unexpected error in btnSaveAs \n\n 75 - Path/File access error";
    struct Case {
        const char* name;
        std::string input; // "" adds nothing
        bool readOnly;
        std::string written;
        Rows messages;
    };
    // clang-format off
    const Case cases[] = {
        {"empty list",      "",         false, "",                     {}},
        {"one script",      "a\rb",     false, "a\r\nb\r\n\r\n\r\n",   {}},
        {"LF inside a row", "a\nb\r\n", false, "a\nb\r\n\r\n\r\n",     {}},
        {"read-only file",  "a\r\n",    true,  "old content",          {lockedFailure}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        app.compiler.lstMaxScripts.Clear();
        platform.ClearMessages();
        if (!c.input.empty())
            Add(dir.Write("in.ms", c.input));
        const Rows before = ListRows();
        const std::string out = dir.Write(c.name, "old content");
        if (c.readOnly)
            std::filesystem::permissions(out, std::filesystem::perms(0444));
        Press(app.compiler.btnSaveAs, out);
        EXPECT_EQ(test::ReadBytes(out), c.written);
        EXPECT_EQ(ListRows(), before);
        EXPECT_EQ(platform.Texts(), c.messages);
        EXPECT_EQ(platform.pointerChanges.back().second, 0);
    }
}

std::string Lines(int count)
{
    std::string bytes;
    for (int i = 1; i <= count; ++i)
        bytes += "r" + std::to_string(i) + "\r\n";
    return bytes;
}

TEST_F(CombinerTest, ListHoldsAtMost32767Rows)
{
    struct Case {
        const char* name;
        int firstLines; // lines of a first script, -1 for none
        int secondLines;
        std::string lastRow;
        bool overflow;
    };
    // clang-format off
    const Case cases[] = {
        {"fills exactly",           -1,    32765, "",       false},
        {"empty rows overflow",     -1,    32767, "r32767", true},
        {"second empty row fails",  -1,    32766, "",       true},
        {"full list takes nothing", 32765, 1,     "",       true},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        app.compiler.lstMaxScripts.Clear();
        platform.ClearMessages();
        if (c.firstLines >= 0)
            Add(dir.Write("first.ms", Lines(c.firstLines)));
        Add(dir.Write("second.ms", Lines(c.secondLines)));
        EXPECT_EQ(app.compiler.lstMaxScripts.ListCount().value(), 32767);
        EXPECT_EQ(ListRows().back(), c.lastRow);
        const Rows expected =
            c.overflow ? Rows{"Unexpected error in btnAddFile \n\n 6 - Overflow"} : Rows{};
        EXPECT_EQ(platform.Texts(), expected);
    }
}

TEST_F(CombinerTest, CancelChangesNothing)
{
    Add(dir.Write("in.ms", "a\r\n"));
    platform.pointerChanges.clear();
    app.compiler.btnAddFile.Click.Fire();
    app.compiler.btnSaveAs.Click.Fire();
    EXPECT_EQ(ListRows(), (Rows{"a", "", ""}));
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_TRUE(platform.pointerChanges.empty());
}

TEST_F(CombinerTest, EachOpeningStartsEmptyAndDoneOnlyHides)
{
    int modalRuns = 0;
    app.compiler.showModal = [&] {
        ++modalRuns;
        EXPECT_TRUE(app.compiler.visible);
        EXPECT_TRUE(ListRows().empty());
        Add(dir.Write("in.ms", "a\r\n"));
        app.compiler.btnDone.Click.Fire();
        EXPECT_FALSE(app.compiler.visible);
    };
    app.main.btnRunScriptCompiler.Click.Fire();
    EXPECT_EQ(ListRows(), (Rows{"a", "", ""}));
    app.main.btnRunScriptCompiler.Click.Fire();
    EXPECT_EQ(modalRuns, 2);
}

} // namespace
} // namespace tos
