#include "script/stock_builders.h"

#include "script/builder.h"

namespace tos {

namespace {

// Option n of the object list walks stock group n.
constexpr BuilderKind StockKind(const char* routine, int option, const char* fileSubject)
{
    return {routine, kStockGroupRows[static_cast<std::size_t>(option - 1)], fileSubject};
}

} // namespace

void BuildBillboardScript(App& app)
{
    static const BuilderKind kind = StockKind("BuildBillboardScript", 1, "Billboards");
    RunBuilder(app, kind);
}

void BuildBaleScript(App& app)
{
    static const BuilderKind kind = StockKind("BuildBaleScript", 2, "Bales");
    RunBuilder(app, kind);
}

void BuildTripleBaleScript(App& app)
{
    static const BuilderKind kind = StockKind("BuildTripleBaleScript", 3, "TripleBales");
    RunBuilder(app, kind);
}

void Build55GalDrum_TrashCanScript(App& app)
{
    static const BuilderKind kind =
        StockKind("Build55GalDrum_TrashCanScript", 4, "55GalDrums_TrashCans");
    RunBuilder(app, kind);
}

} // namespace tos
