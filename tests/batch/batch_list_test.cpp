#include <gtest/gtest.h>

#include <random>

#include "batch/batch_events.h"
#include "batch/batch_list.h"
#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"
#include "forms/batch_form.h"
#include "shell/startup.h"

namespace tos {
namespace {

BatchItem Item(std::string select, std::string maxFile, std::string objectName)
{
    BatchItem item;
    item.select = std::move(select);
    item.maxFile = std::move(maxFile);
    item.objectName = std::move(objectName);
    return item;
}

TEST(BatchList, WritesTheProfileFormWithWhatItDoesNotReadKept)
{
    BatchList list;
    list.head = {"; made by hand"};
    list.style.max2008 = true;
    list.batchOther = {"Owner=me"};
    list.items = {Item("Tree", "C:\\Models\\Trees.max", "Pine01"), Item("Rock", "", "Rock")};
    list.items[0].verticalScale = "1.0";
    list.items[0].nameFrom = NameFrom::MaxFile;
    list.items[0].otherLines = {"Colour=green"};
    list.tail = {"[Notes]", "Any=thing"};
    test::ScratchDir dir;
    const std::string file = dir.File("Valley.tosbatch");
    WriteBatchList(file, list);
    // The second item cannot run without a .max file, so it is kept unchecked.
    EXPECT_EQ(test::ReadBytes(file),
              test::ReadBytes(std::string(TOS_TEST_DATA_DIR) + "/batch/written.tosbatch"));
    const BatchListRead read = ReadBatchList(file);
    list.items[1].process = false;
    EXPECT_TRUE(read.readable && read.problems.empty());
    EXPECT_EQ(read.list, list);
}

// Any text a box can hold: blanks at the ends, quotes, "=", ";", brackets, words
// the platform's reader treats specially, and long values.
std::string RandomValue(std::mt19937& random)
{
    static const std::string pieces[] = {
        "a", " ", "\t",       "\"",   "'",         "=", ";",
        "[", "]", "NotFound", "\xE9", "\\\\NAS\\", "0", std::string(300, 'x')};
    std::string value;
    for (auto n = random() % 6; n > 0; --n)
        value += pieces[random() % std::size(pieces)];
    return value;
}

TEST(BatchList, ReadWriteReadIsTheIdentity)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        BatchList list;
        list.style.instances = random() % 2 ? std::optional(random() % 2 == 0) : std::nullopt;
        for (auto n = random() % 4; n > 0; --n) {
            BatchItem item = Item(RandomValue(random), RandomValue(random), RandomValue(random));
            if (std::string offset = RandomValue(random); !offset.empty())
                item.verticalOffset = offset; // an empty value stands for none
            item.process = random() % 2;
            item.nameFrom = static_cast<NameFrom>(random() % 3);
            item.max2008 = random() % 2 ? std::optional(random() % 2 == 0) : std::nullopt;
            list.items.push_back(item);
        }
        const BatchList once = ParseBatchList(BatchListText(list), "f").list;
        EXPECT_EQ(ParseBatchList(BatchListText(once), "f").list, once) << BatchListText(list);
        for (std::size_t i = 0; i < list.items.size(); ++i) {
            EXPECT_EQ(once.items[i].select, list.items[i].select);
            EXPECT_EQ(once.items[i].verticalOffset, list.items[i].verticalOffset);
        }
    }
    // Files edited by hand come back from a save as they were read, but that an item
    // which cannot run comes back unchecked.
    for (const char* text : {
             "[Batch]\nItems=1\n[Item1]\nSelect = Tree \nMaxFile='T.max'\nObjectName=Pine\n",
             "; comment\r\n\r\n[batch]\r\nitems=1\r\n[ITEM1]\r\nselect=Tree\r\nx=1\r\n[Item9]\r\n",
             "[Batch]\rItems=2\r[Item2]\rSelect=B\rProcess=no\r[Item1]\rSelect=A\rProcess=TRUE\r",
             "[Batch]\nItems=1\n[Item1]\nSelect=A\nSelect=B\n[Batch]\nItems=7\n",
         }) {
        BatchListRead read = ParseBatchList(text, "f");
        ASSERT_TRUE(read.readable) << text;
        const BatchList saved = ParseBatchList(BatchListText(read.list), "f").list;
        for (BatchItem& item : read.list.items)
            item.process = item.process && MissingKeys(item).empty();
        EXPECT_EQ(saved, read.list) << text;
    }
}

TEST(BatchList, NamesTheFileTheItemAndTheKeyOfEachProblem)
{
    struct Case {
        const char* text; // nullptr: no file
        std::vector<std::string> problems;
        std::size_t items;
    };
    test::ScratchDir dir;
    const std::string f = "The batch list " + dir.File("b.tosbatch");
    const std::string words = "[Batch]\r\nItems=1\r\nStyle=2008\r\n[Item1]\r\nSelect=T\r\n"
                              "MaxFile=t.max\r\nObjectName=T\r\nInstances=maybe\r\nProcess=00\r\n"
                              "NameFrom=scene\r\n";
    // clang-format off
    const Case cases[] = {
        {.text = nullptr, .problems = {f + " cannot be read: File not found (53)."}, .items = 0},
        {.text = "[Item1]\r\nSelect=Tree\r\n",
         .problems = {f + ": [Batch] has no whole number Items (found \"\")."}, .items = 0},
        {.text = "[Batch]\r\nItems=1.5\r\n",
         .problems = {f + ": [Batch] has no whole number Items (found \"1.5\")."}, .items = 0},
        // Only an item to be processed needs its three names.
        {.text = "[Batch]\r\nItems=3\r\n[Item1]\r\nMaxFile=a.max\r\n[Item2]\r\nSelect=T\r\n"
                 "Process=0\r\n[Item3]\r\nSelect=T\r\nMaxFile=t.max\r\nObjectName=T\r\n",
         .problems = {f + ": [Item1] has no Select.", f + ": [Item1] has no ObjectName."},
         .items = 3},
        {.text = "[Batch]\r\nItems=0\r\nStyle=MAX2008\r\nInstances=Yes\r\n", .problems = {},
         .items = 0},
        {.text = words.c_str(),
         .problems = {f + ": [Batch] has Style=2008; it takes classic or max2008.",
                      f + ": [Item1] has Process=00; it takes 1 or 0.",
                      f + ": [Item1] has Instances=maybe; it takes 1 or 0.",
                      f + ": [Item1] has NameFrom=scene; it takes typed, tolvarine or maxfile."},
         .items = 1},
    };
    // clang-format on
    for (const Case& c : cases) {
        std::filesystem::remove(dir.File("b.tosbatch"));
        if (c.text)
            dir.Write("b.tosbatch", c.text);
        const BatchListRead read = ReadBatchList(dir.File("b.tosbatch"));
        EXPECT_EQ(read.problems, c.problems) << (c.text ? c.text : "no file");
        EXPECT_EQ(read.list.items.size(), c.items);
    }
}

// Closing Process All with changes that no batch list keeps asks what to do with them.
TEST(BatchWindowModel, ClosingWithChangesSavesDiscardsOrStays)
{
    struct Case {
        const char* what;
        bool changed;
        MessageAnswer answer;
        const char* saveAs; // the save dialog's answer
        bool closed;
        bool saved;
    };
    // clang-format off
    const Case cases[] = {
        {.what = "no change",       .changed = false, .answer = MessageAnswer::Cancel,  .saveAs = "",  .closed = true,  .saved = false},
        {.what = "discard",         .changed = true,  .answer = MessageAnswer::Discard, .saveAs = "",  .closed = true,  .saved = false},
        {.what = "cancel",          .changed = true,  .answer = MessageAnswer::Cancel,  .saveAs = "",  .closed = false, .saved = false},
        {.what = "save",            .changed = true,  .answer = MessageAnswer::Save,    .saveAs = "b", .closed = true,  .saved = true},
        {.what = "save, no file",   .changed = true,  .answer = MessageAnswer::Save,    .saveAs = "",  .closed = false, .saved = false},
    };
    // clang-format on
    for (const Case& c : cases) {
        test::ScratchDir dir;
        test::FakePlatform platform;
        platform.programFolder = std::string(TOS_SOURCE_DIR) + "/resources";
        App app(platform);
        BatchForm& batch = app.batch;
        ConnectBatchEvents(app);
        Main(app);
        platform.dialogAnswers = {test::CopyExampleProject(dir)};
        app.main.btnBrowseProjectFile.Click.Fire();
        app.main.btnProcessAll.Click.Fire();
        if (c.changed)
            batch.rows.front()->txtMaxFile.SetText("T.max");
        platform.ClearMessages();
        platform.answers = {c.answer};
        const std::string file = dir.File("saved.tosbatch");
        platform.dialogAnswers = {*c.saveAs ? file : ""};
        batch.btnClose.Click.Fire();
        EXPECT_EQ(!batch.visible, c.closed) << c.what;
        EXPECT_EQ(platform.messages.size(), c.changed ? 1u : 0u) << c.what;
        EXPECT_EQ(std::filesystem::exists(file), c.saved) << c.what;
    }
}

} // namespace
} // namespace tos
