#include <gtest/gtest.h>

#include "forms/controls.h"
#include "script/script_check.h"
#include "script/script_text.h"

namespace tos {
namespace {

// A script of one first object and one turned copy, as a style writes it.
std::vector<std::string> Script(const std::string& object, const std::string& maxFile,
                                bool max2008 = false)
{
    ListBox rows("List2", false, RowLimit::None);
    const auto text = MakeScriptText(rows, object, {.max2008 = max2008, .instances = false});
    Turns turned;
    turned.rotateZ = true;
    turned.angleZ = 90;
    text->Head("Valley_Main_Pine.ms", maxFile);
    text->FirstObject({1, 2, 3}, std::nullopt);
    text->CopyPlacement(1, {4, 5, 6});
    text->CopyTurns(1, turned);
    text->GoBack(turned);
    text->End();
    return rows.Rows();
}

constexpr const char* kPath = "C:\\Models\\Tree.max";

TEST(ScriptCheck, TellsWhereTodays3dsMaxWouldStopOrMisreadAClassicScript)
{
    struct Case {
        const char* object;
        const char* maxFile;
        std::vector<ScriptFinding> findings; // all from classic scripts
    };
    // clang-format off
    const Case cases[] = {
        {.object = "Tree", .maxFile = kPath, .findings = {}},
        {.object = "Caf\xE9_01", .maxFile = kPath, .findings = {}},
        {.object = "Big Tree", .maxFile = kPath,
         .findings = {{13, "3ds Max would stop at line 13: the name Big Tree needs quotes.", true}}},
        {.object = "Tree", .maxFile = "\\\\NAS\\Models\\Tree.max",
         .findings = {{9, "3ds Max would misread line 9: the path \\\\NAS\\MODELS\\TREE.MAX starts "
                          "with \\\\, which a string reads as one backslash.", true}}},
        {.object = "Tree", .maxFile = "C:\\%Lib%\\Tree.max",
         .findings = {{9, "3ds Max would misread line 9: in the path C:\\%LIB%\\TREE.MAX, a string "
                          "reads \\% as %.", true}}},
        {.object = "Tree", .maxFile = "C:\\\"x\".max",
         .findings = {{9, "3ds Max would stop at line 9: the path C:\\\"X\".MAX holds a double "
                          "quote, which ends the string early.", true}}},
        {.object = "Tree*", .maxFile = kPath,
         .findings = {{13, "3ds Max would misread line 13: * and ? in the name Tree* match other "
                           "objects too.", true}}},
        {.object = "a\\b", .maxFile = kPath,
         .findings = {{13, "3ds Max would misread line 13: the backslash in the name a\\b starts an "
                           "escape.", true}}},
        {.object = "lights", .maxFile = kPath,
         .findings = {{13, "3ds Max would misread line 13: $lights means a set of objects, not the "
                           "object lights.", true}}},
        {.object = "", .maxFile = kPath,
         .findings = {{13, "3ds Max would misread line 13: the object name is empty, so $ means "
                           "the selection.", true}}},
    };
    // clang-format on
    for (const Case& c : cases)
        EXPECT_EQ(CheckScript(Script(c.object, c.maxFile)), c.findings) << c.object;
}

TEST(ScriptCheck, FindsNothingToMendInTheOtherStyleButAnEmptyName)
{
    for (const char* object : {"Big \"Tree\"", "it's", "a\\b", "*?", "lights", "Caf\xE9"})
        EXPECT_EQ(CheckScript(Script(object, "\\\\NAS\\%x%\\n.max", true)).size(), 0u) << object;
    const std::vector<ScriptFinding> empty{
        {8, "3ds Max would stop at line 8: the object name is empty.", false}};
    EXPECT_EQ(CheckScript(Script("", kPath, true)), empty);
}

TEST(ScriptCheck, TellsEachKindOncePerScriptOfAJoinedFile)
{
    std::vector<std::string> joined = Script("Big Tree", "\\\\NAS\\Tree.max");
    const std::vector<std::string> second = Script("Big Tree", kPath);
    joined.insert(joined.end(), {"", ""});
    joined.insert(joined.end(), second.begin(), second.end());
    std::vector<std::size_t> lines;
    for (const ScriptFinding& finding : CheckScript(joined))
        lines.push_back(finding.line);
    EXPECT_EQ(lines, (std::vector<std::size_t>{9, 13, 38}));
}

TEST(ScriptCheck, ShowsAsOneLineWithTheHintAndHowManyFollow)
{
    const std::vector<ScriptFinding> two{{9, "A.", true}, {13, "B.", true}};
    EXPECT_EQ(CheckLine({}), "");
    EXPECT_EQ(CheckLine({{8, "A.", false}}), "A.");
    EXPECT_EQ(CheckLine(two), "A. Tick For 3ds Max 2008 and later. (1 more)");
    EXPECT_EQ(FindingLine("s.ms", two[1]), "s.ms:13: B. Use --style max2008.");
}

} // namespace
} // namespace tos
