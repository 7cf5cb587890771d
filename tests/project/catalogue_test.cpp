#include <gtest/gtest.h>

#include "project/catalogue.h"
#include "scene_fixture.h"

namespace tos::test {
namespace {

using Rows = std::vector<std::string>;

TEST(Catalogue, MembershipIsCaseBlindOnTheWholeFileName)
{
    LoadFixture fx;
    fx.Restart("[MiscStockObjects]\r\nTotalItems=1\r\nItem_1=Crate.SLB\r\n");
    App& app = *fx.app;
    struct Case {
        const char* value;
        int table; // 0 billboard, 1 bale, 2 triple bale, 3 drum or trash can, 4 misc, -1 none
    };
    // clang-format off
    const Case cases[] = {
        {"billboard_fox2.slb", 0}, {"fox03.slb",       1}, {"TRIPLEBALE08.SLB", 2}, {"50gal.SLB", 3},
        {"CRATE.slb",          4}, {"x\\Fox03.SLB", -1}, {"Fox03",           -1}, {"",         -1},
        {"Fox03.SLB ",        -1}, {"Billboard_FOX.SLT", -1},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.value);
        const bool answers[] = {IsInternalBillboard(app, c.value), IsInternalBale(app, c.value),
                                IsInternalTripleBale(app, c.value),
                                IsInternal55GalDrum_TrashCan(app, c.value),
                                IsInternalMiscStockObject(app, c.value)};
        for (int t = 0; t < 5; ++t)
            EXPECT_EQ(answers[t], t == c.table) << "table " << t;
    }
    EXPECT_EQ(app.state.InternalBillboard.Rows().size() + app.state.InternalBale.Rows().size() +
                  app.state.InternalTripleBale.Rows().size() +
                  app.state.Internal55GalDrum_TrashCan.Rows().size(),
              60u);
}

TEST(Catalogue, MiscItemsFromTheCatalogueFile)
{
    struct Case {
        const char* file; // nullptr: no file at all
        Rows items;
        Rows messages;
    };
    const std::string err = "Unexpected error in LoadInternalObjects. ";
    // clang-format off
    const Case cases[] = {
        {nullptr,                                                            {},                   {}},
        {"[Other]\r\nTotalItems=2\r\n",                                      {},                   {}},
        {"[MiscStockObjects]\r\nTotalItems=3\r\nItem_1=A.SLB\r\nItem_3=C.SLB\r\n", {"A.SLB", "C.SLB"},
            {"Error reading: Item_2 in TolvarineObjectScripter.ini"}},
        {"[MiscStockObjects]\r\nTotalItems=2.5\r\nItem_1=A.SLB\r\nItem_2=B.SLB\r\nItem_3=C.SLB\r\n", {"A.SLB", "B.SLB"}, {}},
        {"[MiscStockObjects]\r\nTotalItems=-1\r\nItem_1=A.SLB\r\n",          {},                   {}},
        {"[MiscStockObjects]\r\nTotalItems=2\r\nItem_1=A.SLB\r\nItem_2=a.slb\r\n", {"A.SLB"},
            {err + "This key is already associated with an element of this collection ( 457)"}},
        {"[MiscStockObjects]\r\nTotalItems=3000000000\r\n",                   {},
            {err + "Overflow ( 6)"}},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file ? c.file : "no file");
        LoadFixture fx;
        fx.platform.ClearMessages();
        if (c.file)
            fx.Restart(c.file);
        EXPECT_EQ(fx.app->state.InternalMiscStockObject.Rows(), c.items);
        EXPECT_EQ(fx.Messages(), c.messages);
    }
}

TEST(Catalogue, MiscStockObjectsJoinTheObjectList)
{
    LoadFixture fx;
    fx.Restart(
        "[MiscStockObjects]\r\nTotalItems=2\r\nItem_1=Crate_KV_Big.SLB\r\nItem_2=Fox03.SLB\r\n");
    fx.Load(SceneText({{"crate_kv_big.slb", "1920,0,2000"},
                       {"Fox03.SLB", "1921,0,2000"},
                       {"Barn.SLT", "1922,0,2000"}}));
    MainForm& f = fx.app->main;
    // The marker cuts only in its own case; a misc item that is also a bale is listed twice.
    EXPECT_EQ(f.lstSCNdata3.Rows(), (Rows{"Barn", "crate_kv_big", "Fox03"}));
    EXPECT_EQ(f.lstBales.Rows(), Rows{"002|Fox03.SLB"});
    EXPECT_EQ(f.lblSLTcount.Caption(), "1");
}

} // namespace
} // namespace tos::test
