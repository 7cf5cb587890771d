#include "script/stock_builders.h"

#include "script/builder.h"

namespace tos {

namespace {

// Stock rows hold the model number in field 0, and every row of the list counts.
constexpr BuilderKind StockKind(const char* routine, ListBox MainForm::*list,
                                const char* fileSubject)
{
    return {routine, list, false, Int16(0), fileSubject};
}

} // namespace

void BuildBillboardScript(App& app)
{
    static const BuilderKind kind =
        StockKind("BuildBillboardScript", &MainForm::lstBillboards, "Billboards");
    RunBuilder(app, kind);
}

void BuildBaleScript(App& app)
{
    static const BuilderKind kind = StockKind("BuildBaleScript", &MainForm::lstBales, "Bales");
    RunBuilder(app, kind);
}

void BuildTripleBaleScript(App& app)
{
    static const BuilderKind kind =
        StockKind("BuildTripleBaleScript", &MainForm::lstTripleBales, "TripleBales");
    RunBuilder(app, kind);
}

void Build55GalDrum_TrashCanScript(App& app)
{
    static const BuilderKind kind =
        StockKind("Build55GalDrum_TrashCanScript", &MainForm::lst55GalDrums_TrashCans,
                  "55GalDrums_TrashCans");
    RunBuilder(app, kind);
}

} // namespace tos
