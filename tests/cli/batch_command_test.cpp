#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "batch/batch_events.h"
#include "cli_run.h"
#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"
#include "forms/batch_form.h"
#include "shell/startup.h"
#include "support/system.h"

namespace tos::test {
namespace {

const std::string kProgramFolder = std::string(TOS_SOURCE_DIR) + "/resources";

CliResult RunCli(const std::vector<std::string>& args)
{
    return test::RunCli(args, kProgramFolder);
}

// Every file of a folder with its bytes.
std::map<std::string, std::string> Files(const ScratchDir& dir)
{
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(dir.Path()))
        if (entry.path().extension() == ".ms")
            files[entry.path().filename().string()] = ReadBytes(entry.path().string());
    return files;
}

// Four items: a tree, the single bales, a barn and a rock left unchecked.
const std::string kBatch = ReadBytes(std::string(TOS_TEST_DATA_DIR) + "/batch/valley.tosbatch");

TEST(BatchCommand, GivesWhatSingleScriptRunsAndACombinationGive)
{
    // The same items by hand: one script run each, then the combiner.
    const std::vector<std::vector<std::string>> singles = {
        {"Tree", "--max-file", "C:\\Models\\Trees.max", "--max-object", "Pine01",
         "--vertical-scale", "1.5", "--vertical-offset", "2.0"},
        {"* Option 2:  All Stock Single Bales", "--max-file", "C:\\Models\\Bale.max",
         "--max-object", "Bale"},
        // The list writes "barn": the batch takes the row as the object list writes it.
        {"Barn", "--max-file", "D:\\Barn.max", "--max-object", "Barn", "--vertical-offset", "-3"},
    };
    for (const bool perimeter : {false, true}) {
        SCOPED_TRACE(perimeter);
        const std::string mode = perimeter ? "_Per_" : "_Main_";
        ScratchDir byHand, batched;
        const std::string handProject = CopyExampleProject(byHand);
        std::vector<std::string> combine{"combine", byHand.File("Valley" + mode + "All.ms")};
        for (const auto& single : singles) {
            std::vector<std::string> args{"script", handProject};
            args.insert(args.end(), single.begin(), single.end());
            if (perimeter)
                args.push_back("--perimeter");
            ASSERT_EQ(RunCli(args).status, 0);
        }
        for (const char* name : {"Tree", "Bales", "Barn"}) // the order of the list
            combine.push_back(byHand.File("Valley" + mode + name + ".ms"));
        ASSERT_EQ(RunCli(combine).status, 0);

        std::vector<std::string> args{"batch", CopyExampleProject(batched),
                                      batched.Write("b.tosbatch", kBatch)};
        if (perimeter)
            args.push_back("--perimeter");
        const CliResult run = RunCli(args);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(Files(batched), Files(byHand));
        EXPECT_EQ(Files(batched).size(), 4u);
        const std::string folder = batched.Path().string() + kPathSeparator + "Valley" + mode;
        std::istringstream lines(run.out);
        std::vector<std::string> printed;
        for (std::string line; std::getline(lines, line);)
            printed.push_back(line);
        ASSERT_EQ(printed.size(), 5u);
        EXPECT_EQ(printed[0].substr(0, printed[0].find(',')), "Tree: " + folder + "Tree.ms");
        EXPECT_EQ(printed[4], "Joined: " + folder + "All.ms, 3 scripts");
        EXPECT_EQ(printed[3], "Rock: not checked");
    }
}

// The window and the command run one batch list the same way, file for file.
TEST(BatchCommand, RunsAListAsTheWindowDoes)
{
    std::string six = kBatch + "[Item5]\r\nSelect=Orchard\r\nMaxFile=O.max\r\nObjectName=O\r\n"
                               "[Item6]\r\nSelect=TREE\r\nMaxFile=C:\\Oak.max\r\n"
                               "ObjectName=Big Oak\r\nStyle=max2008\r\n";
    six.replace(six.find("Items=4"), 7, "Items=6");

    ScratchDir byCommand, byWindow;
    const CliResult run =
        RunCli({"batch", CopyExampleProject(byCommand), byCommand.Write("b.tosbatch", six)});
    EXPECT_EQ(run.status, 0) << run.err;

    FakePlatform platform;
    platform.programFolder = kProgramFolder;
    App app(platform);
    BatchForm& batch = app.batch;
    ConnectBatchEvents(app);
    Main(app);
    platform.dialogAnswers = {CopyExampleProject(byWindow)};
    app.main.btnBrowseProjectFile.Click.Fire();
    LoadBatchList(app, batch, byWindow.Write("b.tosbatch", six));
    batch.btnRunBatch.Click.Fire();

    EXPECT_EQ(Files(byWindow), Files(byCommand));
    EXPECT_EQ(Files(byWindow).size(), 4u); // Tree (twice run), Bales, Barn, All
    EXPECT_TRUE(platform.messages.empty());
}

TEST(BatchCommand, ReportsBadListsAndRunsTheRest)
{
    const std::string tree = "[Item1]\r\nSelect=Tree\r\nMaxFile=T.max\r\nObjectName=Pine\r\n";
    struct Case {
        const char* name;
        std::string list; // "" writes no file
        std::vector<std::string> options = {};
        int status = 0;
        std::string out = {};    // the lines printed, the project's folder written as @
        std::string error = {};  // part of the error stream; none at all when empty
        std::size_t scripts = 0; // .ms files written
    };
    const std::string one = "[Batch]\r\nItems=1\r\n" + tree;
    const std::string treeOut = "Tree: @Valley_Main_Tree.ms, 40 rows\n";
    // clang-format off
    const Case cases[] = {
        {.name = "missing list", .list = "", .status = 1,
         .error = "The batch list @b.tosbatch cannot be read: File not found (53)."},
        {.name = "missing key",
         .list = "[Batch]\r\nItems=2\r\n" + tree + "[Item2]\r\nSelect=Rock\r\n",
         .status = 1, .out = treeOut + "Rock: not run, no MaxFile or ObjectName\n"
                                       "Joined: @Valley_Main_All.ms, 1 script\n",
         .error = "@b.tosbatch: [Item2] has no MaxFile.", .scripts = 2},
        // An item of another scene is kept and told; one that selects the same row as
        // an earlier one runs too, as single runs would.
        {.name = "unknown selection and a repeat",
         .list = "[Batch]\r\nItems=3\r\n[Item1]\r\nSelect=Orchard\r\nMaxFile=O.max\r\n"
                 "ObjectName=O\r\n[Item2]\r\nSelect=Tree\r\nMaxFile=T.max\r\nObjectName=Pine\r\n"
                 "[Item3]\r\nSelect=tree\r\nMaxFile=T.max\r\nObjectName=Oak\r\n",
         .out = "Orchard: not in this scene\n" + treeOut +
                "tree: @Valley_Main_Tree.ms, 40 rows, replacing the script of item 2\n"
                "Joined: @Valley_Main_All.ms, 2 scripts\n", .scripts = 2},
        {.name = "no save", .list = one, .options = {"--no-save"},
         .out = "Tree: @Valley_Main_Tree.ms (not saved), 40 rows\nNothing joined.\n"},
        {.name = "combined elsewhere", .list = one, .options = {"--combined", "@joined.ms"},
         .out = treeOut + "Joined: @joined.ms, 1 script\n", .scripts = 2},
        // The joined file is written whole or not at all, and never over a script of the
        // run, whatever the letter case.
        {.name = "joined over", .list = one, .options = {"--combined", "@valley_main_TREE.ms"},
         .status = 1, .out = treeOut + "Nothing joined.\n",
         .error = "The joined script @valley_main_TREE.ms would replace the script of Tree; "
                  "nothing was joined.", .scripts = 1},
        {.name = "joined nowhere", .list = one, .options = {"--combined", "@none/j.ms"},
         .status = 1, .out = treeOut + "Nothing joined.\n",
         .error = "could not be written: Path not found (76)", .scripts = 1},
        {.name = "styles of the list and of an item",
         .list = "[Batch]\r\nItems=2\r\nStyle=max2008\r\n" + tree + "[Item2]\r\nSelect=Barn\r\n"
                 "MaxFile=B.max\r\nObjectName=Red Barn\r\nStyle=classic\r\n",
         .options = {"--style", "classic"},
         .out = "Tree: @Valley_Main_Tree.ms, 61 rows\nBarn: @Valley_Main_Barn.ms, 27 rows\n"
                "Joined: @Valley_Main_All.ms, 2 scripts\n",
         .error = "@Valley_Main_Barn.ms:13: 3ds Max would stop at line 13: the name Red Barn needs "
                  "quotes.", .scripts = 3},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ScratchDir dir;
        const std::string at = dir.Path().string() + kPathSeparator;
        auto place = [&](std::string text) {
            for (std::size_t p; (p = text.find('@')) != std::string::npos;)
                text.replace(p, 1, at);
            return text;
        };
        if (!c.list.empty())
            dir.Write("b.tosbatch", c.list);
        std::vector<std::string> args{"batch", CopyExampleProject(dir), dir.File("b.tosbatch")};
        for (const std::string& option : c.options)
            args.push_back(place(option));
        const CliResult run = RunCli(args);
        EXPECT_EQ(run.status, c.status);
        EXPECT_EQ(run.out, place(c.out));
        // A case without an error expects none at all.
        if (c.error.empty()) {
            EXPECT_EQ(run.err, "");
        } else {
            EXPECT_NE(run.err.find(place(c.error)), std::string::npos) << run.err;
        }
        EXPECT_EQ(Files(dir).size(), c.scripts);
    }
}

} // namespace
} // namespace tos::test
