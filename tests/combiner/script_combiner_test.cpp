#include <gtest/gtest.h>

#include <filesystem>

#include "combiner/script_combiner.h"
#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"

namespace tos {
namespace {

using Rows = std::vector<std::string>;

struct CombinerTest : ::testing::Test {
    CombinerTest() { ConnectCombinerEvents(app); }
    // Presses a button of the form, the dialog answering path ("" cancels).
    void Press(Button& button, const std::string& path)
    {
        platform.dialogAnswers = {path};
        button.Click.Fire();
    }
    void Add(const std::string& path) { Press(app.compiler.btnAddFile, path); }

    test::FakePlatform platform;
    test::ScratchDir dir;
    App app{platform};
    const Rows& rows = app.compiler.lstMaxScripts.Rows();
};

TEST_F(CombinerTest, ReadsLinesIntoRowsAndSavesEachWithCrLf)
{
    const std::string locked = "Unexpected error in btnSaveAs \n\n 75 - Path/File access error";
    // clang-format off
    const std::tuple<std::string, int, Rows, bool, std::string> cases[] = {
        // file              added  rows                       read-only  saved
        {"a\r\nb\r\nc\r\n",  1,     {"a", "b", "c", "", ""},   false,     "a\r\nb\r\nc\r\n\r\n\r\n"},
        {"a\rb\rc\r",        1,     {"a", "b", "c", "", ""},   false,     "a\r\nb\r\nc\r\n\r\n\r\n"},
        {"a\nb\nc\n",        1,     {"a\nb\nc\n", "", ""},     false,     "a\nb\nc\n\r\n\r\n\r\n"},
        {"a\r\nlast",        1,     {"a", "last", "", ""},     false,     "a\r\nlast\r\n\r\n\r\n"},
        {"a\r\n\nb\r\n",     1,     {"a", "\nb", "", ""},      false,     "a\r\n\nb\r\n\r\n\r\n"},
        {"",                 1,     {"", ""},                  false,     "\r\n\r\n"},
        {"x",                2,     {"x", "", "", "x", "", ""}, false,    "x\r\n\r\n\r\nx\r\n\r\n\r\n"},
        {"",                 0,     {},                        false,     ""},
        {"a\r\n",             1,     {"a", "", ""},             true,      "old content"},
    };
    // clang-format on
    for (const auto& [bytes, times, expected, readOnly, saved] : cases) {
        app.compiler.lstMaxScripts.Clear();
        const std::string path = dir.Write("in.ms", bytes);
        for (int i = 0; i < times; ++i)
            Add(path);
        const std::string out = dir.Write("out.ms", "old content");
        if (readOnly)
            std::filesystem::permissions(out, std::filesystem::perms(0444));
        Press(app.compiler.btnSaveAs, out);
        EXPECT_EQ(test::ReadBytes(out), saved);
        EXPECT_EQ(rows, expected) << bytes; // saving leaves the list as it was
        EXPECT_EQ(platform.Texts(), Rows(readOnly, locked));
    }
}

TEST_F(CombinerTest, KeepsAndSavesEveryLinePast32767)
{
    std::string script;
    for (int line = 1; line <= 20000; ++line)
        script += "line " + std::to_string(line) + "\r\n";
    const std::string in = dir.Write("in.ms", script), out = dir.Write("out.ms", "");
    for (int i = 0; i < 3; ++i)
        Add(in);
    Press(app.compiler.btnSaveAs, out);
    // Each script is followed by its two empty rows: 3 x 20,002 rows.
    ASSERT_EQ(rows.size(), 60006u);
    EXPECT_EQ(rows[40001] + "|" + rows[40004] + "|" + rows[60003], "line 20000|line 1|line 20000");
    EXPECT_EQ(test::ReadBytes(out),
              script + "\r\n\r\n" + script + "\r\n\r\n" + script + "\r\n\r\n");
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CombinerTest, EachOpeningStartsEmptyAndCancelChangesNothing)
{
    app.state.DefaultDir = "/projects";
    app.compiler.showModal = [&] {
        EXPECT_TRUE(app.compiler.visible && rows.empty());
        Add(dir.Write("in.ms", "a\r\n"));
        app.compiler.btnAddFile.Click.Fire();
        app.compiler.btnSaveAs.Click.Fire();
        app.compiler.btnDone.Click.Fire();
        EXPECT_FALSE(app.compiler.visible);
    };
    for (int opening = 0; opening < 2; ++opening) {
        app.main.btnRunScriptCompiler.Click.Fire();
        EXPECT_EQ(rows, (Rows{"a", "", ""}));
    }
    EXPECT_TRUE(platform.messages.empty());
    // The hourglass shows only while a chosen file is read.
    const std::pair hourglass(FormId::Compiler, 11), normal(FormId::Compiler, 0);
    EXPECT_EQ(platform.pointerChanges, (std::vector{hourglass, normal, hourglass, normal}));
    for (const auto& [asked, title] : {std::pair(1, "Open MAX Script File (MS)|0"),
                                       {2, "Save Compiled MAX Script As... (MS)|1"}}) {
        const FileDialogRequest& r = platform.dialogRequests[asked];
        EXPECT_EQ(r.title + "|" + std::to_string(r.save) + "|" + r.filter + "|" + r.initialFolder,
                  title + std::string("|MS File (*.ms)|*.ms|/projects"));
    }
}

} // namespace
} // namespace tos
