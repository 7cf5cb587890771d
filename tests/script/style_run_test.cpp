#include <gtest/gtest.h>

#include <cmath>

#include "build_fixture.h"
#include "maxscript_runner.h"
#include "script/builder.h"

namespace tos {
namespace {

using test::MaxNode;
using test::MaxScene;
using Lines = std::vector<std::string>;

// Four copies of Tree, turned about one axis, several, or not at all; with the
// perimeter tiles they fold.
const std::string kScene =
    "[Model1]\r\nSLT=Tree.SLT\r\nPosition=1920.5,4.0,2000.25\r\nLookVector=0,0,-1\r\n"
    "UpVector=0,1,0\r\n[Model2]\r\nSLT=Tree.SLT\r\nPosition=1700.5,1.0,2850.25\r\n"
    "LookVector=0.36,0.48,0.8\r\nUpVector=0.48,0.64,-0.6\r\n[Model3]\r\nSLT=Tree.SLT\r\n"
    "Position=2100.0,1.0,1600.0\r\nLookVector=-0.64,0.6,0.48\r\nUpVector=0.48,0.8,-0.36\r\n"
    "[Model4]\r\nSLT=Tree.SLT\r\nPosition=1500.0,0.0,1400.0\r\nLookVector=1,0,0\r\nUpVector=0,1,"
    "0\r\n";

struct Style {
    std::string object = "Tree";
    std::string maxFile = "C:\\Models\\Tree.max";
    bool max2008 = false;
    bool instances = false;
    bool mainTile = true;
};

Lines Script(const Style& style)
{
    test::BuildFixture f;
    f.Scene(kScene);
    f.Rows(&MainForm::lstSCNdata2,
           {"Tree|001|001", "Tree|002|002", "Tree|003|003", "Tree|004|004"});
    MainForm& form = f.app.main;
    form.comboSelectObject.SetText("Tree");
    form.chkMainTile.SetValue(style.mainTile ? 1 : 0);
    form.txtObjectScale.SetText("50");
    form.txtVerticalScale.SetText("1.5");
    form.txtVerticalOffset.SetText("2.0");
    form.txtMaxFile.SetText(style.maxFile);
    form.txtMaxObjectName.SetText(style.object);
    form.chkMax2008.SetValue(style.max2008 ? 1 : 0);
    form.chkInstances.SetValue(style.instances ? 1 : 0);
    BuildScript(f.app);
    EXPECT_TRUE(f.platform.messages.empty());
    return form.List2.Rows();
}

// Runs scripts one after the other in one scene whose library has the style's file.
MaxScene RunIn(const Style& style, const std::vector<Lines>& scripts)
{
    MaxScene scene;
    scene.library[style.maxFile] = {style.object, "Ground"};
    for (const Lines& script : scripts)
        scene.Run(script);
    return scene;
}

// The nodes stand alike: same place, scale, turn and selection, named alike but
// for the object's own name.
void ExpectSameNodes(const std::vector<MaxNode>& got, const std::vector<MaxNode>& want,
                     const std::string& object)
{
    ASSERT_EQ(got.size(), want.size());
    for (std::size_t i = 0; i < got.size(); ++i) {
        SCOPED_TRACE(want[i].name);
        std::string name = want[i].name;
        if (name.rfind("Tree", 0) == 0)
            name.replace(0, 4, object);
        EXPECT_EQ(got[i].name, name);
        EXPECT_EQ(got[i].selected, want[i].selected);
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_NEAR(got[i].pos[k], want[i].pos[k], 1e-9);
            EXPECT_NEAR(got[i].scale[k], want[i].scale[k], 1e-9);
        }
        for (std::size_t k = 0; k < 9; ++k)
            EXPECT_NEAR(got[i].rotation[k], want[i].rotation[k], 1e-9);
    }
}

TEST(ScriptStyles, TheNewerStylePlacesEveryNodeAsTheClassicOneWhateverTheNames)
{
    const Style plain;
    const MaxScene classic = RunIn(plain, {Script(plain)});
    ASSERT_EQ(classic.nodes.size(), 5u);                      // Tree, Ground, three copies
    EXPECT_NE(classic.nodes[3].rotation, MaxNode().rotation); // the turns are compared
    // clang-format off
    const Style rows[] = {
        {.object = "Tree"},
        {.object = "Big Tree"},
        {.object = "Big \"Tree\""},
        {.object = "it's"},
        {.object = "a\\b"},
        {.object = "Tree*"},
        {.object = "Tree?"},
        {.object = "Caf\xE9"},
        {.object = "Bip01 L Arm"},
        {.object = "Tree", .maxFile = "\\\\NAS\\Models\\Tree.max"},
        {.object = "Tree", .maxFile = "C:\\new\\tree.max"},
        {.object = "Tree", .maxFile = "C:\\Models\\50%\\Tree.max"},
        {.object = "Big Tree", .maxFile = "\\\\NAS\\x\\n.max", .instances = true},
    };
    // clang-format on
    for (Style style : rows) {
        SCOPED_TRACE(style.object + " " + style.maxFile);
        style.max2008 = true;
        const MaxScene modern = RunIn(style, {Script(style)});
        ExpectSameNodes(modern.nodes, classic.nodes, style.object);
        EXPECT_TRUE(modern.messageBoxes.empty());
    }
    // The classic text stops at the first row that names such an object.
    const Style blank{.object = "Big Tree"};
    try {
        RunIn(blank, {Script(blank)});
        ADD_FAILURE() << "the classic script of Big Tree ran";
    } catch (const test::MaxScriptError& e) {
        EXPECT_EQ(e.line, 13);
    }
}

TEST(ScriptStyles, InstancesShareTheFirstObjectsMesh)
{
    for (const bool instances : {false, true}) {
        const Style style{.max2008 = true, .instances = instances};
        const MaxScene scene = RunIn(style, {Script(style)});
        ASSERT_EQ(scene.nodes.size(), 5u);
        for (std::size_t i = 2; i < scene.nodes.size(); ++i)
            EXPECT_EQ(scene.nodes[i].mesh == scene.nodes[0].mesh, instances) << i;
    }
}

TEST(ScriptStyles, ScriptsOfTheSameObjectNeverTouchEachOthersNodes)
{
    Style main{.max2008 = true}, perimeter{.max2008 = true, .mainTile = false};
    // Main tile and perimeter joined by the combiner, run at once.
    Lines joined = Script(main);
    joined.insert(joined.end(), {"", ""});
    const Lines second = Script(perimeter);
    joined.insert(joined.end(), second.begin(), second.end());
    joined.insert(joined.end(), {"", ""});
    main.max2008 = perimeter.max2008 = false;
    std::vector<MaxNode> alone = RunIn(main, {Script(main)}).nodes;
    for (MaxNode& node : alone)
        node.selected = false; // the second run selects only its own nodes
    const std::vector<MaxNode> after = RunIn(perimeter, {Script(perimeter)}).nodes;
    alone.insert(alone.end(), after.begin(), after.end());
    ExpectSameNodes(RunIn(main, {joined}).nodes, alone, "Tree");

    // The classic texts joined find the first script's node by its name: the second
    // script copies it, turned by the first, and turns it once more.
    const MaxScene classic = RunIn(main, {Script(main), Script(perimeter)});
    ASSERT_EQ(classic.nodes.size(), alone.size());
    EXPECT_NE(classic.nodes[0].rotation, alone[0].rotation);

    // One script run twice: the second run's nodes are the first run's again.
    main.max2008 = true;
    const MaxScene twice = RunIn(main, {Script(main), Script(main)});
    std::vector<MaxNode> first(twice.nodes.begin(), twice.nodes.begin() + 5);
    for (MaxNode& node : first)
        node.selected = true;
    ExpectSameNodes({twice.nodes.begin() + 5, twice.nodes.end()}, first, "Tree");
}

TEST(ScriptStyles, PlacesWithUndoOffSelectsItsNodesAndStopsCleanlyWithoutTheObject)
{
    const Style style{.max2008 = true};
    const MaxScene scene = RunIn(style, {Script(style)});
    for (std::size_t i = 0; i < scene.nodes.size(); ++i)
        EXPECT_TRUE(scene.nodes[i].madeWithUndoOff && scene.nodes[i].selected) << i;

    // A file without the object, and no file at all: one message, nothing placed.
    for (const std::vector<std::string>& objects : {std::vector<std::string>{"Ground"}, {}}) {
        MaxScene missing;
        if (!objects.empty())
            missing.library[style.maxFile] = objects;
        missing.Run(Script(style));
        EXPECT_EQ(missing.messageBoxes.size(), 1u);
        EXPECT_EQ(missing.nodes.size(), objects.size());
    }
}

} // namespace
} // namespace tos
