#include "project/stock_groups.h"

#include "forms/app.h"
#include "project/catalogue.h"
#include "project/scene_models.h"
#include "support/failure.h"
#include "support/value_memo.h"

namespace tos {

namespace {

// What tells the four groups apart: the catalogue test and the list they fill.
struct StockGroup {
    const char* routine;
    bool (*isMember)(App&, const std::string&);
    ListBox MainForm::*list;
};

constexpr StockGroup kBillboards{"ProcessBillboards", IsInternalBillboard,
                                 &MainForm::lstBillboards};
constexpr StockGroup kBales{"ProcessBales", IsInternalBale, &MainForm::lstBales};
constexpr StockGroup kTripleBales{"ProcessTripleBales", IsInternalTripleBale,
                                  &MainForm::lstTripleBales};
constexpr StockGroup kDrumsTrashCans{"Process55GalDrums_TrashCans", IsInternal55GalDrum_TrashCan,
                                     &MainForm::lst55GalDrums_TrashCans};

void ProcessStockGroup(App& app, MainForm& form, const StockGroup& group)
{
    ListBox& list = form.*group.list;
    if (auto f = Trap([&] {
            list.Clear();
            const TileWindow window = ReadTileWindowAndLinkScale(app);
            ValueMemo<bool> member;
            ForEachModel(
                app, app.state.NumberOfStaticModels,
                [&](Int32 n, std::string_view value, std::uint32_t distinct) {
                    if (member(value, distinct,
                               [&](const std::string& v) { return group.isMember(app, v); }) &&
                        IsInChosenTiles(app, window, n))
                        list.AddItem(RecordRow(ModelNumberField(n), value));
                });
        }))
        app.Message(TrapMessageColon(group.routine, *f));
}

} // namespace

void ProcessBillboards(App& app, MainForm& form)
{
    ProcessStockGroup(app, form, kBillboards);
}

void ProcessBales(App& app, MainForm& form)
{
    ProcessStockGroup(app, form, kBales);
}

void ProcessTripleBales(App& app, MainForm& form)
{
    ProcessStockGroup(app, form, kTripleBales);
}

void Process55GalDrums_TrashCans(App& app, MainForm& form)
{
    ProcessStockGroup(app, form, kDrumsTrashCans);
}

} // namespace tos
