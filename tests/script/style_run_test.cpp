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
    f.SceneFromCase("style_run"); // four copies of Tree, turned about one axis, several or none
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
    // Each character a literal escapes or keeps, in a name and in a path; the newer
    // style places with undo off, and instances share the first object's mesh.
    // clang-format off
    const Style rows[] = {
        {.object = "Tree"},
        {.object = "Big \"it's\" a\\b\\*?\xE9 L \"Arm\""},
        {.object = "Tree", .maxFile = "\\\\NAS\\new\\50%\\tree.max"},
        {.object = "Big Tree", .maxFile = "\\\\NAS\\x\\n.max", .instances = true},
    };
    // clang-format on
    for (Style style : rows) {
        SCOPED_TRACE(style.object + " " + style.maxFile);
        style.max2008 = true;
        const MaxScene modern = RunIn(style, {Script(style)});
        ExpectSameNodes(modern.nodes, classic.nodes, style.object);
        EXPECT_TRUE(modern.messageBoxes.empty());
        for (std::size_t i = 0; i < modern.nodes.size(); ++i) {
            EXPECT_TRUE(modern.nodes[i].madeWithUndoOff) << i;
            EXPECT_EQ(modern.nodes[i].mesh == modern.nodes[0].mesh,
                      i == 0 || (i > 1 && style.instances))
                << i;
        }
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

TEST(ScriptStyles, StopsCleanlyWithoutTheObject)
{
    // A file without the object, and no file at all: one message, nothing placed.
    const Style style{.max2008 = true};
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
