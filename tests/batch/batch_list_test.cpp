#include <gtest/gtest.h>

#include "batch/batch_list.h"
#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"

namespace tos {
namespace {

struct BatchListTest : ::testing::Test {
    test::ScratchDir dir;
    test::FakePlatform platform;
    App app{platform};
};

TEST_F(BatchListTest, WritesTheProfileFormAndReadsEveryValueBack)
{
    std::vector<BatchItem> items(3);
    items[0] = {.select = "Tree",
                .maxFile = "C:\\Models\\Trees.max",
                .objectName = "Pine01",
                .verticalScale = "1.0",
                .verticalOffset = "0.0",
                .process = true,
                .max2008 = {},
                .instances = {}};
    items[1] = {.select = "* Option 2:  All Stock Single Bales",
                .maxFile = "C:\\Models\\Bale.max",
                .objectName = "Bale",
                .verticalScale = {},
                .verticalOffset = {},
                .process = true,
                .max2008 = {},
                .instances = {}};
    const std::string file = dir.File("Valley.tosbatch");
    WriteBatchList(app, file, {items[0], items[1]});
    EXPECT_EQ(test::ReadBytes(file),
              "[Batch]\r\nItems=2\r\n[Item1]\r\nSelect=Tree\r\nMaxFile=C:\\Models\\Trees.max\r\n"
              "ObjectName=Pine01\r\nVerticalScale=1.0\r\nVerticalOffset=0.0\r\n[Item2]\r\n"
              "Select=* Option 2:  All Stock Single Bales\r\nMaxFile=C:\\Models\\Bale.max\r\n"
              "ObjectName=Bale\r\n");

    // Values the profile reader would trim or unquote, a row not to be processed, and
    // script styles of the list and of items.
    items[1].max2008 = true;
    items[2] = {.select = "Rock",
                .maxFile = " D:\\with blank.max\t",
                .objectName = "'quoted'",
                .verticalScale = "\"2\"",
                .verticalOffset = {},
                .process = false,
                .max2008 = false,
                .instances = true};
    const BatchStyle style{.max2008 = true, .instances = false};
    WriteBatchList(app, file, items, style);
    const BatchListRead read = ReadBatchList(app, file);
    EXPECT_TRUE(read.readable && read.problems.empty());
    EXPECT_EQ(read.items, items);
    EXPECT_EQ(read.style, style);
}

TEST_F(BatchListTest, NamesTheFileTheItemAndTheKeyOfEachProblem)
{
    struct Case {
        const char* text; // nullptr: no file
        std::vector<std::string> problems;
        std::size_t items;
    };
    const std::string f = "The batch list " + dir.File("b.tosbatch");
    // clang-format off
    const Case cases[] = {
        {.text = nullptr, .problems = {f + " cannot be read: File not found (53)."}, .items = 0},
        {.text = "[Item1]\r\nSelect=Tree\r\n",
         .problems = {f + ": [Batch] has no whole number Items (found \"\")."}, .items = 0},
        {.text = "[Batch]\r\nItems=1.5\r\n",
         .problems = {f + ": [Batch] has no whole number Items (found \"1.5\")."}, .items = 0},
        {.text = "[Batch]\r\nItems=2\r\n[Item1]\r\nMaxFile=a.max\r\n[Item2]\r\nSelect=T\r\n"
                 "MaxFile=t.max\r\nObjectName=T\r\n",
         .problems = {f + ": [Item1] has no Select.", f + ": [Item1] has no ObjectName."},
         .items = 2},
        {.text = "[Batch]\r\nItems=0\r\nStyle=MAX2008\r\nInstances=Yes\r\n", .problems = {},
         .items = 0},
        {.text = "[Batch]\r\nItems=1\r\nStyle=2008\r\n[Item1]\r\nSelect=T\r\nMaxFile=t.max\r\n"
                 "ObjectName=T\r\nInstances=maybe\r\n",
         .problems = {f + ": [Batch] has Style=2008; it takes classic or max2008.",
                      f + ": [Item1] has Instances=maybe; it takes 1 or 0."},
         .items = 1},
    };
    // clang-format on
    for (const Case& c : cases) {
        std::filesystem::remove(dir.File("b.tosbatch"));
        if (c.text)
            dir.Write("b.tosbatch", c.text);
        const BatchListRead read = ReadBatchList(app, dir.File("b.tosbatch"));
        EXPECT_EQ(read.problems, c.problems) << (c.text ? c.text : "no file");
        EXPECT_EQ(read.items.size(), c.items);
    }
    EXPECT_TRUE(platform.messages.empty()); // the caller decides how problems are shown
}

} // namespace
} // namespace tos
