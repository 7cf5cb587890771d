#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "forms/app.h"
#include "forms/screen_text.h"
#include "support/conversions.h"
#include "support/failure.h"

namespace tos {
namespace {

// The record lists and the combo box's rows are counted in 16 bits; the two
// lists that hold scripts take rows as long as memory lasts.
TEST(ListBoxTest, SixteenBitListsStopAt32767AndScriptListsGoOn)
{
    test::FakePlatform platform;
    App app(platform);
    MainForm& f = app.main;
    struct Case {
        ListBox* list;
        std::size_t add;
        std::size_t kept;
        int fail; // the failure of the first add that fails, 0 for none
        const char* last;
    };
    std::vector<Case> cases;
    ListBox &combo = f.comboSelectObject.Items(), &scripts = app.compiler.lstMaxScripts;
    // clang-format off
    for (ListBox* list : {&f.lstSCNdata1, &f.lstSCNdata2, &f.lstSCNdata3, &f.lstBillboards,
                          &f.lstBales, &f.lstTripleBales, &f.lst55GalDrums_TrashCans})
        cases.push_back({.list = list, .add = 32768, .kept = 32767, .fail = 6, .last = "row 9999"});
    cases.insert(cases.end(), {
        {.list = &combo, .add = 32768, .kept = 32767, .fail = 6, .last = "row 2"},
        {.list = &f.List2, .add = 100000, .kept = 100000, .fail = 0, .last = "row 1"},
        {.list = &scripts, .add = 100000, .kept = 100000, .fail = 0, .last = "row 1"},
    });
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.list->Name());
        int failure = 0;
        for (std::size_t i = 0; i < c.add && failure == 0; ++i) {
            // From the highest number down, so a sorted list reorders them all.
            if (auto trapped = Trap([&] { c.list->AddItem("row " + std::to_string(c.add - i)); }))
                failure = trapped->Number();
        }
        EXPECT_EQ(failure, c.fail);
        ASSERT_EQ(c.list->RowCount(), c.kept);
        EXPECT_EQ(c.list->Row(c.kept - 1), c.last);
        EXPECT_EQ(c.list->Row(c.kept), "");
        // A 16-bit count of a longer list would be wrong, so it fails instead.
        const auto counted = Trap([&] { EXPECT_EQ(c.list->ListCount().value(), 32767); });
        EXPECT_EQ(counted ? counted->Number() : 0, c.kept > 32767 ? 6 : 0);
    }
}

// A sorted list orders its rows as their upper-cased bytes compare, rows with equal keys in
// the order they came, also when rows come between reads; checked against a stable sort on
// lists whose rows share heads, differ in case and in bytes above 127.
TEST(ListBoxTest, SortedRowsFollowTheirUpperCasedBytesAndKeepTheOrderOfEqualOnes)
{
    std::mt19937 random(7);
    const std::string bytes = "aAbB|09 \xe9\xc9\xff";
    for (int list = 0; list < 300; ++list) {
        ListBox box("lst", true);
        std::vector<std::string> expected;
        std::vector<std::string> heads(1 + random() % 5);
        for (std::string& head : heads)
            for (std::size_t n = random() % 20; n > 0; --n)
                head += bytes[random() % bytes.size()];
        for (std::size_t row = random() % 400; row > 0; --row) {
            std::string text = heads[random() % heads.size()];
            for (std::size_t n = random() % 5; n > 0; --n)
                text += bytes[random() % bytes.size()];
            box.AddItem(text);
            expected.push_back(text);
            if (random() % 40 == 0 || row == 1) {
                std::stable_sort(expected.begin(), expected.end(),
                                 [](auto& a, auto& b) { return UpperCase(a) < UpperCase(b); });
                ASSERT_EQ(box.Rows(), expected) << "list " << list;
            }
        }
    }
}

// Both front ends ask for the same face: the designed one, else its stand-in, and
// count a row's columns with the same tab stops.
TEST(ScreenTextTest, FaceStandInsAndTabStops)
{
    struct Row {
        const char* face;
        const char* installed; // faces the desktop has, separated by '|'
        const char* chosen;
    };
    // clang-format off
    const Row rows[] = {
        {.face = "Courier New", .installed = "Courier New|Liberation Mono",
         .chosen = "Courier New"},
        {.face = "Courier New", .installed = "Liberation Mono", .chosen = "Liberation Mono"},
        {.face = "Arial", .installed = "Liberation Sans", .chosen = "Liberation Sans"},
        {.face = "Arial", .installed = "", .chosen = "Arial"},
        {.face = "Tahoma", .installed = "Liberation Sans", .chosen = "Tahoma"},
    };
    // clang-format on
    for (const Row& r : rows) {
        const std::string installed = std::string("|") + r.installed + "|";
        const auto has = [&](const std::string& f) {
            return installed.find("|" + f + "|") != std::string::npos;
        };
        EXPECT_EQ(ChooseFace(r.face, has), r.chosen) << r.face << " with " << r.installed;
    }
    EXPECT_TRUE(IsFixedPitchFace("Liberation Mono") && IsFixedPitchFace("Courier New"));
    EXPECT_FALSE(IsFixedPitchFace("Arial"));
    EXPECT_EQ(ShownColumns("ab\tc"), 9u);
    EXPECT_EQ(ShownColumns("abcdefgh\t\t"), 24u);
    EXPECT_EQ(ShownColumns(""), 0u);
}

} // namespace
} // namespace tos
