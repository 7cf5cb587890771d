#include <gtest/gtest.h>

#include "project/catalogue.h"
#include "scene_fixture.h"

namespace tos::test {
namespace {

using Rows = std::vector<std::string>;

TEST(Catalogue, MembershipIsCaseBlindOnTheWholeFileNameAndMiscItemsAreObjects)
{
    LoadFixture fx("[MiscStockObjects]\nTotalItems=2\nItem_1=Crate_KV_Big.SLB\nItem_2=Fox03.SLB\n");
    bool (*const tests[])(App&, const std::string&) = {
        IsInternalBillboard, IsInternalBale, IsInternalTripleBale, IsInternal55GalDrum_TrashCan,
        IsInternalMiscStockObject};
    // The tables that answer yes: billboard (W), bale, triple bale, drum or can, misc.
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"billboard_fox2.slb", "W----"}, {"fox03.slb",        "-B--M"}, {"TRIPLEBALE08.SLB", "--T--"},
        {"50gal.SLB",          "---D-"}, {"CRATE_kv_big.slb", "----M"}, {"x\\Fox03.SLB",     "-----"},
        {"Fox03",              "-----"}, {"",                 "-----"}, {"Fox03.SLB ",       "-----"},
    };
    // clang-format on
    for (const auto& [value, tables] : cases) {
        std::string answers;
        for (int t = 0; t < 5; ++t)
            answers += tests[t](*fx.app, value) ? "WBTDM"[t] : '-';
        EXPECT_EQ(answers, tables) << value;
    }

    // The marker cuts only in its own case; a misc item that is also a bale is listed twice.
    const std::string in = "1920,0,2000";
    fx.Load(SceneText({{"crate_kv_big.slb", in}, {"Fox03.SLB", in}, {"Barn.SLT", in}}));
    EXPECT_EQ(fx.app->main.lstSCNdata3.Rows(), (Rows{"Barn", "crate_kv_big", "Fox03"}));
    EXPECT_EQ(fx.app->main.lstBales.Rows(), Rows{"002|Fox03.SLB"});
    EXPECT_EQ(fx.app->main.lblSLTcount.Caption(), "1");
}

TEST(Catalogue, MiscItemsFromTheCatalogueFile)
{
    const std::string m = "[MiscStockObjects]\nTotalItems=";
    const std::string err = "Unexpected error in LoadInternalObjects. ";
    // clang-format off
    struct Case { std::string file; Rows items, messages; }; // "": no file at all
    const Case cases[] = {
        {"",                                        {},                 {}},
        {"[Other]\nTotalItems=2\n",                 {},                 {}},
        {m + "3\nItem_1=A.SLB\nItem_3=C.SLB\n",     {"A.SLB", "C.SLB"}, {"Error reading: Item_2 in TolvarineObjectScripter.ini"}},
        {m + "2.5\nItem_1=A.SLB\nItem_2=B.SLB\nItem_3=C.SLB\n", {"A.SLB", "B.SLB"}, {}},
        {m + "2\nItem_1=A.SLB\nItem_2=a.slb\n",     {"A.SLB"},          {err + "This key is already associated with an element of this collection ( 457)"}},
        {m + "3000000000\n",                        {},                 {err + "Overflow ( 6)"}},
    };
    // clang-format on
    for (const Case& c : cases) {
        LoadFixture fx(c.file);
        EXPECT_EQ(fx.app->state.InternalMiscStockObject.Rows(), c.items) << c.file;
        EXPECT_EQ(fx.Messages(), c.messages) << c.file;
    }
}

} // namespace
} // namespace tos::test
