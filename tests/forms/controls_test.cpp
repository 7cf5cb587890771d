#include <gtest/gtest.h>

#include <string>

#include "common/fake_platform.h"
#include "forms/app.h"
#include "forms/screen_text.h"
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
        std::size_t adding;
        std::size_t kept;
        int failure; // of the first add that fails, 0 for none
        const char* last;
    };
    // clang-format off
    const Case cases[] = {
        {.list = &f.lstSCNdata1,                  .adding = 32768,  .kept = 32767,  .failure = 6, .last = "row 9999"},
        {.list = &f.lstSCNdata2,                  .adding = 32768,  .kept = 32767,  .failure = 6, .last = "row 9999"},
        {.list = &f.lstSCNdata3,                  .adding = 32768,  .kept = 32767,  .failure = 6, .last = "row 9999"},
        {.list = &f.lstBillboards,                .adding = 32768,  .kept = 32767,  .failure = 6, .last = "row 9999"},
        {.list = &f.lstBales,                     .adding = 32768,  .kept = 32767,  .failure = 6, .last = "row 9999"},
        {.list = &f.lstTripleBales,               .adding = 32768,  .kept = 32767,  .failure = 6, .last = "row 9999"},
        {.list = &f.lst55GalDrums_TrashCans,      .adding = 32768,  .kept = 32767,  .failure = 6, .last = "row 9999"},
        {.list = &f.comboSelectObject.Items(),    .adding = 32768,  .kept = 32767,  .failure = 6, .last = "row 2"},
        {.list = &f.List2,                        .adding = 100000, .kept = 100000, .failure = 0, .last = "row 1"},
        {.list = &app.compiler.lstMaxScripts,     .adding = 100000, .kept = 100000, .failure = 0, .last = "row 1"},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.list->Name());
        int failure = 0;
        for (std::size_t i = 0; i < c.adding && failure == 0; ++i) {
            // From the highest number down, so a sorted list reorders them all.
            if (auto trapped =
                    Trap([&] { c.list->AddItem("row " + std::to_string(c.adding - i)); }))
                failure = trapped->Number();
        }
        EXPECT_EQ(failure, c.failure);
        ASSERT_EQ(c.list->RowCount(), c.kept);
        EXPECT_EQ(c.list->Row(c.kept - 1), c.last);
        EXPECT_EQ(c.list->Row(c.kept), "");
        // A 16-bit count of a longer list would be wrong, so it fails instead.
        const auto counted = Trap([&] { EXPECT_EQ(c.list->ListCount().value(), 32767); });
        EXPECT_EQ(counted ? counted->Number() : 0, c.kept > 32767 ? 6 : 0);
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
    const Row rows[] = {
        {.face = "Courier New",
         .installed = "Courier New|Liberation Mono",
         .chosen = "Courier New"},
        {.face = "Courier New", .installed = "Liberation Mono", .chosen = "Liberation Mono"},
        {.face = "Arial", .installed = "Liberation Sans", .chosen = "Liberation Sans"},
        {.face = "Arial", .installed = "", .chosen = "Arial"},
        {.face = "Tahoma", .installed = "Liberation Sans", .chosen = "Tahoma"},
    };
    for (const Row& r : rows) {
        const std::string installed = std::string("|") + r.installed + "|";
        EXPECT_EQ(ChooseFace(r.face,
                             [&](const std::string& face) {
                                 return installed.find("|" + face + "|") != std::string::npos;
                             }),
                  r.chosen)
            << r.face << " with " << r.installed;
    }
    EXPECT_TRUE(IsFixedPitchFace("Liberation Mono") && IsFixedPitchFace("Courier New"));
    EXPECT_FALSE(IsFixedPitchFace("Arial"));
    EXPECT_EQ(ShownColumns("ab\tc"), 9u);
    EXPECT_EQ(ShownColumns("abcdefgh\t\t"), 24u);
    EXPECT_EQ(ShownColumns(""), 0u);
}

} // namespace
} // namespace tos
