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

    // Adds the file through the form's button, the dialog answering path.
    void Add(const std::string& path)
    {
        platform.dialogAnswers.push_back(path);
        app.compiler.btnAddFile.Click.Fire();
    }

    void SaveAs(const std::string& path)
    {
        platform.dialogAnswers.push_back(path);
        app.compiler.btnSaveAs.Click.Fire();
    }

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
        Rows rows;
    };
    // clang-format off
    const Case cases[] = {
        {"three CR LF lines", "a\r\nb\r\nc\r\n",  {"a", "b", "c", "", ""}},
        {"CR alone",          "a\rb\rc\r",        {"a", "b", "c", "", ""}},
        {"LF alone",          "a\nb\nc\n",        {"a\nb\nc\n", "", ""}},
        {"no final line end", "a\r\nlast",        {"a", "last", "", ""}},
        {"empty file",        "",                 {"", ""}},
        {"one empty line",    "\r\n",             {"", "", ""}},
        {"CR CR LF",          "a\r\r\nb",         {"a", "", "b", "", ""}},
        {"LF after CR LF",    "a\r\n\nb\r\n",     {"a", "\nb", "", ""}},
        {"blanks kept",       "  x = 1 \t\r\n",   {"  x = 1 \t", "", ""}},
        {"high bytes kept",   "caf\xE9\r\n",      {"caf\xE9", "", ""}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        app.compiler.lstMaxScripts.Clear();
        Add(dir.Write("in.ms", c.bytes));
        EXPECT_EQ(ListRows(), c.rows);
        EXPECT_TRUE(platform.messages.empty());
    }
}

TEST_F(CombinerTest, ScriptsFollowOneAnotherAndTheSameFileMayComeTwice)
{
    const std::string first = dir.Write("first.ms", "a\r\nb\r\nc\r\n");
    const std::string second = dir.Write("second.ms", "x\r\n");
    Add(first);
    Add(second);
    Add(first);
    const Rows expected{"a", "b", "c", "", "", "x", "", "", "a", "b", "c", "", ""};
    EXPECT_EQ(ListRows(), expected);
}

TEST_F(CombinerTest, DialogsAskForScriptsInTheDefaultFolder)
{
    const std::string script = dir.Write("s.ms", "x\r\n");
    Add(script);
    SaveAs(dir.Write("out.ms", ""));
    ASSERT_EQ(platform.dialogRequests.size(), 2u);
    const auto& open = platform.dialogRequests[0];
    const auto& save = platform.dialogRequests[1];
    EXPECT_EQ(open.form, FormId::Compiler);
    EXPECT_EQ(open.title, "Open MAX Script File (MS)");
    EXPECT_FALSE(open.save);
    EXPECT_EQ(save.form, FormId::Compiler);
    EXPECT_EQ(save.title, "Save Compiled MAX Script As... (MS)");
    EXPECT_TRUE(save.save);
    for (const auto& r : platform.dialogRequests) {
        EXPECT_EQ(r.initialFolder, app.state.DefaultDir);
        EXPECT_EQ(r.filter, "MS File (*.ms)|*.ms");
        EXPECT_EQ(r.filterIndex, 1);
        EXPECT_EQ(r.fileName, "");
    }
    using Change = std::pair<FormId, int>;
    const std::vector<Change> pointers{{FormId::Compiler, 11},
                                       {FormId::Compiler, 0},
                                       {FormId::Compiler, 11},
                                       {FormId::Compiler, 0}};
    EXPECT_EQ(platform.pointerChanges, pointers);
}

TEST_F(CombinerTest, SavingWritesEveryRowWithCrLfAndKeepsTheList)
{
    struct Case {
        const char* name;
        std::string input; // "" adds nothing
        std::string written;
    };
    // clang-format off
    const Case cases[] = {
        {"empty list",    "",              ""},
        {"one script",    "a\rb",          "a\r\nb\r\n\r\n\r\n"},
        {"LF inside row", "a\nb\r\n",      "a\nb\r\n\r\n\r\n"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        app.compiler.lstMaxScripts.Clear();
        if (!c.input.empty())
            Add(dir.Write("in.ms", c.input));
        const Rows before = ListRows();
        const std::string out = dir.Write("out.ms", "old content that is longer\r\n");
        SaveAs(out);
        EXPECT_EQ(test::ReadBytes(out), c.written);
        EXPECT_EQ(ListRows(), before);
        EXPECT_TRUE(platform.messages.empty());
    }
}

TEST_F(CombinerTest, ReadOnlyTargetShowsTheTrapAndKeepsRowsAndFile)
{
    Add(dir.Write("in.ms", "a\r\n"));
    const std::string out = dir.Write("locked.ms", "keep");
    std::filesystem::permissions(out, std::filesystem::perms(0444));
    SaveAs(out);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text,
              "Unexpected error in btnSaveAs \n\n 75 - Path/File access error");
    EXPECT_EQ(platform.messages[0].title, "TolvarineObjectScripter");
    EXPECT_EQ(test::ReadBytes(out), "keep");
    EXPECT_EQ(ListRows(), (Rows{"a", "", ""}));
    EXPECT_EQ(platform.pointerChanges.back(), std::make_pair(FormId::Compiler, 0));
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
    const std::string out = dir.Write("out.ms", "keep");
    app.compiler.btnAddFile.Click.Fire();
    app.compiler.btnSaveAs.Click.Fire();
    EXPECT_EQ(ListRows(), (Rows{"a", "", ""}));
    EXPECT_EQ(test::ReadBytes(out), "keep");
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
    };
    app.main.btnRunScriptCompiler.Click.Fire();
    EXPECT_FALSE(app.compiler.visible);
    EXPECT_EQ(ListRows(), (Rows{"a", "", ""}));
    app.main.btnRunScriptCompiler.Click.Fire();
    EXPECT_EQ(modalRuns, 2);
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CombinerTest, LoadCentresTheFormOnTheScreen)
{
    struct Case {
        double width, height;
        int left, top;
    };
    // clang-format off
    const Case cases[] = {
        {19200, 10800, 6592, 2737},
        {40000, 4000,  0,    0},
    };
    // clang-format on
    for (const auto& c : cases) {
        platform.screen = {c.width, c.height};
        CompilerForm_Load(app);
        EXPECT_EQ(app.compiler.left, c.left);
        EXPECT_EQ(app.compiler.top, c.top);
    }
}

} // namespace
} // namespace tos
