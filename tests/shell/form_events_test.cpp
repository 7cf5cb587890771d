#include <gtest/gtest.h>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"
#include "shell/startup.h"

namespace tos {
namespace {

using Texts = std::vector<std::string>;

struct FormEventsTest : ::testing::Test {
    FormEventsTest() { Main(app); }
    test::FakePlatform platform;
    App app{platform};
    MainForm& f = app.main;
};

TEST_F(FormEventsTest, TileBoxesStayOppositeAndTheScaleBoxLocksOneOfTwo)
{
    // A click on the checked tile box checks the other, in both directions.
    for (const auto& [clicked, mainTile] : {std::pair(&f.chkMainTile, 0),
                                            {&f.chkMainTile, 1},
                                            {&f.chkPerimeterTile, 0},
                                            {&f.chkPerimeterTile, 1}}) {
        clicked->SetValue(1 - clicked->Value());
        EXPECT_EQ(std::pair(f.chkMainTile.Value(), f.chkPerimeterTile.Value()),
                  std::pair(mainTile, 1 - mainTile));
    }
    const auto look = [](const TextBox& box) { return std::pair(box.Locked(), box.Back()); };
    const std::pair locked(true, BackColor::ButtonFace), editable(false, BackColor::Window);
    for (const bool scaleRules : {false, true}) {
        f.chkUseObjectScale.SetValue(scaleRules ? 1 : 0);
        EXPECT_EQ(std::pair(look(f.txtObjectScale), look(f.txtGridSize)),
                  scaleRules ? std::pair(editable, locked) : std::pair(locked, editable));
    }
}

TEST_F(FormEventsTest, LeavingTheGridOrScaleBoxCleansItLockedOrNot)
{
    // clang-format off
    const std::array<const char*, 3> rows[] = {
        // typed         grid size  object scale
        {"",             "1",       "0.100000"},
        {"0.05",         "1",       "0.100000"},
        {"1.5",          "2",       "1.500000"},
        {"2.5",          "2",       "2.500000"},
        {"768.4",        "768",     "768.400000"},
        {"12.3456789",   "12",      "12.345679"},
        {"1e400",        "1e400",   "1e400"}, // out of range: the routine ends without a word
    };
    // clang-format on
    for (const auto& [typed, grid, scale] : rows) {
        for (auto [box, cleaned] : {std::pair(&f.txtGridSize, grid), {&f.txtObjectScale, scale}}) {
            box->SetText(typed);
            box->LostFocus.Fire();
            EXPECT_EQ(box->Text(), cleaned) << typed;
        }
    }
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FormEventsTest, MaxFileBrowseTakesOnlyAnExistingFile)
{
    test::ScratchDir dir;
    const std::string chosen = dir.Write("Tree.max", ""), folder = dir.Path().string();
    f.txtMaxFile.SetText("C:\\old.max");
    // Cancel, a name typed into the dialog, a folder, and at last a file.
    for (const std::string& answer : {std::string(), dir.File("New.max"), folder, chosen}) {
        platform.dialogAnswers = {answer};
        f.btnBrowseMaxFile.Click.Fire();
        EXPECT_EQ(f.txtMaxFile.Text() + "|" + app.state.ObjectDir,
                  answer == chosen ? chosen + "|" + folder : "C:\\old.max|/opt/tos");
        // The first choice stores both folders, also the one that did not change.
        EXPECT_EQ(platform.settings.size(), answer == chosen ? 2u : 0u);
    }
    const FileDialogRequest& asked = platform.dialogRequests.at(0);
    EXPECT_EQ(asked.title + "|" + asked.initialFolder + "|" + asked.filter,
              "Select Max Object File|/opt/tos|MAX File (*.max)|*.max");
}

TEST_F(FormEventsTest, ScriptStyleIsRememberedAndInstancesCountOnlyWithIt)
{
    const std::string key = "Software\\Tolvarine Object Scripter";
    const auto stored = [&](const char* value) { return platform.settings[{key, value}]; };
    EXPECT_FALSE(f.chkMax2008.Checked() || f.chkInstances.Enabled()); // a fresh installation
    f.chkMax2008.SetValue(1);
    f.chkInstances.SetValue(1);
    EXPECT_TRUE(f.chkInstances.Enabled());
    EXPECT_EQ(stored("ScriptStyle") + "|" + stored("Instances"), "max2008|1");
    f.chkMax2008.SetValue(0);
    EXPECT_FALSE(f.chkInstances.Enabled());
    EXPECT_EQ(stored("ScriptStyle") + "|" + stored("Instances"), "classic|1");

    // clang-format off
    const std::tuple<const char*, const char*, int, int> rows[] = {
        // stored style  instances  chkMax2008  chkInstances
        {"max2008",      "1",       1,          1},
        {"MAX2008",      "0",       1,          0},
        {"classic",      "1",       0,          1},
        {"bogus",        "yes",     0,          0},
    };
    // clang-format on
    for (const auto& [style, instances, max2008, instancesBox] : rows) {
        test::FakePlatform next;
        next.settings = {{{key, "ScriptStyle"}, style}, {{key, "Instances"}, instances}};
        App restarted(next);
        Main(restarted);
        const MainForm& r = restarted.main;
        EXPECT_EQ(
            std::tuple(r.chkMax2008.Value(), r.chkInstances.Value(), r.chkInstances.Enabled()),
            std::tuple(max2008, instancesBox, max2008 == 1))
            << style;
    }
}

TEST_F(FormEventsTest, HelpOpensThePageBesideTheProgramOrSaysWhyNot)
{
    test::ScratchDir folder;
    const Texts opened{folder.File("TOS_Help.html")}, failed{"Error launching help file."};
    // clang-format off
    const std::tuple<bool, bool, Texts, Texts> rows[] = {
        // page there  handler works  opened   messages
        {false,        true,          {},      failed},
        {true,         true,          opened,  {}},
        {true,         false,         opened,  failed},
    };
    // clang-format on
    for (const auto& [pageThere, handlerWorks, documents, messages] : rows) {
        if (pageThere)
            folder.Write("TOS_Help.html", "<html></html>");
        platform = {};
        platform.programFolder = folder.Path().string();
        platform.openSucceeds = handlerWorks;
        f.btnViewHelp.Click.Fire();
        EXPECT_EQ(platform.openedDocuments, documents);
        EXPECT_EQ(platform.Texts(), messages);
    }
}

} // namespace
} // namespace tos
