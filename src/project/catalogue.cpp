#include "project/catalogue.h"

#include <initializer_list>

#include "forms/app.h"
#include "support/conversions.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

namespace {

// The stock objects that come with every scene, by file name.
constexpr std::initializer_list<const char*> kBillboards = {
    "Billboard_3Brothers.SLB",     "Billboard_Acerbis.SLB",     "Billboard_Alpinestars.SLB",
    "Billboard_Arai.SLB",          "Billboard_AXO.SLB",         "Billboard_Bieffe.SLB",
    "Billboard_BlackFlys.SLB",     "Billboard_Bridgestone.SLB", "Billboard_DirtBike.SLB",
    "Billboard_Dunlop.SLB",        "Billboard_Excel.SLB",       "Billboard_Fleshgear.SLB",
    "Billboard_FOX.SLB",           "Billboard_Fox2.SLB",        "Billboard_FTM.SLB",
    "Billboard_HJC.SLB",           "Billboard_Mechanix.SLB",    "Billboard_Microsoft.SLB",
    "Billboard_MooreStickney.SLB", "Billboard_Motohed.SLB",     "Billboard_MSR.SLB",
    "Billboard_MXJournal.SLB",     "Billboard_Oakley.SLB",      "Billboard_Pirelli.SLB",
    "Billboard_ProCircuit.SLB",    "Billboard_Rainbow.SLB",     "Billboard_Rainbow2.SLB",
    "Billboard_Renthal.SLB",       "Billboard_RK.SLB",          "Billboard_Xtreme.SLB",
};

constexpr std::initializer_list<const char*> kBales = {
    "AcerbisHB.SLB",   "AlpinestarsHB.SLB", "AraiHB.SLB",         "AxoHB.SLB",
    "BlackFlysHB.SLB", "BridgestoneHB.SLB", "Fox02.SLB",          "Fox03.SLB",
    "Fox04.SLB",       "FoxHB.SLB",         "MechanixwearHB.SLB", "MicrosoftHB.SLB",
    "MotohedHB.SLB",   "MotoXactionHB.SLB", "MSRHB.SLB",          "Oakley2HB.SLB",
    "OakleyHB.SLB",    "PirelliHB.SLB",     "RainbowHB.SLB",      "RenthalHB.SLB",
};

constexpr std::initializer_list<const char*> kTripleBales = {
    "TripleBale01.SLB", "TripleBale02.SLB", "TripleBale03.SLB", "TripleBale04.SLB",
    "TripleBale05.SLB", "TripleBale06.SLB", "TripleBale07.SLB", "TripleBale08.SLB",
};

constexpr std::initializer_list<const char*> kDrumsTrashCans = {"50Gal.SLB", "Trash_Can01.SLB"};

constexpr const char* kCatalogueFileName = "TolvarineObjectScripter.ini";

// A walk through the table, first row to last; a failure on the way is
// reported with the row in hand and answers no.
bool IsInTable(App& app, const CatalogueTable& table, const std::string& modelValue)
{
    const std::string* inHand = nullptr;
    bool found = false;
    if (Trap([&] {
            for (const std::string& row : table.Rows()) {
                inHand = &row;
                if (EqualsIgnoringCase(modelValue, row)) {
                    found = true;
                    return;
                }
            }
        })) {
        app.Message("Error checking " + table.Name() + " " + (inHand ? *inHand : std::string()));
        return false;
    }
    return found;
}

} // namespace

void LoadInternalObjects(App& app)
{
    RunState& s = app.state;
    if (auto f = Trap([&] {
            for (const char* row : kBillboards)
                s.InternalBillboard.Add(row);
            for (const char* row : kBales)
                s.InternalBale.Add(row);
            for (const char* row : kTripleBales)
                s.InternalTripleBale.Add(row);
            for (const char* row : kDrumsTrashCans)
                s.Internal55GalDrum_TrashCan.Add(row);

            if (!FileExists(s.IniFile))
                return;
            const Int32 total = ToInt32(TextToNumber(
                app.profiles.GetINIString("MiscStockObjects", "TotalItems", s.IniFile)));
            if (total <= Int32(0))
                return;
            for (Int32 n = 1; n <= total; ++n) {
                const std::string key = "Item_" + IntegerToText(n.value());
                const std::string item =
                    app.profiles.GetINIString("MiscStockObjects", key, s.IniFile);
                if (item.empty())
                    app.Message("Error reading: " + key + " in " + kCatalogueFileName);
                else
                    s.InternalMiscStockObject.Add(item);
            }
        }))
        app.Message("Unexpected error in LoadInternalObjects. " + f->Description() + " (" +
                    SignedIntegerText(f->Number()) + ")");
}

bool IsInternalBillboard(App& app, const std::string& modelValue)
{
    return IsInTable(app, app.state.InternalBillboard, modelValue);
}

bool IsInternalBale(App& app, const std::string& modelValue)
{
    return IsInTable(app, app.state.InternalBale, modelValue);
}

bool IsInternalTripleBale(App& app, const std::string& modelValue)
{
    return IsInTable(app, app.state.InternalTripleBale, modelValue);
}

bool IsInternal55GalDrum_TrashCan(App& app, const std::string& modelValue)
{
    return IsInTable(app, app.state.Internal55GalDrum_TrashCan, modelValue);
}

bool IsInternalMiscStockObject(App& app, const std::string& modelValue)
{
    return IsInTable(app, app.state.InternalMiscStockObject, modelValue);
}

} // namespace tos
