#include "project/object_list.h"

#include "forms/app.h"
#include "support/failure.h"

namespace tos {

namespace {

// The text in front of each colon is the keyword the Process command looks for.
struct OptionRow {
    ListBox MainForm::*list;
    const char* text;
};

constexpr OptionRow kOptionRows[] = {
    {&MainForm::lstBillboards, "* Option 1:  All Stock Billboard Banners"},
    {&MainForm::lstBales, "* Option 2:  All Stock Single Bales"},
    {&MainForm::lstTripleBales, "* Option 3:  All Stock Triple Bales"},
    {&MainForm::lst55GalDrums_TrashCans, "* Option 4:  All Stock 55Gal Drums/Trash Cans"},
};

} // namespace

void LoadObjectList(App& app)
{
    MainForm& f = app.main;
    if (auto failure = Trap([&] {
            f.comboSelectObject.SetText("");
            ListBox& rows = f.comboSelectObject.Items();
            rows.Clear();
            for (const OptionRow& option : kOptionRows)
                if (!(f.*option.list).List(Int16(0)).empty())
                    rows.AddItem(option.text);
            if (f.lstSCNdata3.List(Int16(0)).empty())
                return;
            const Int16 count = f.lstSCNdata3.ListCount();
            for (Int16 i = 0; i <= count - Int16(1); ++i)
                rows.AddItem(f.lstSCNdata3.List(i));
        }))
        app.Message(TrapMessageColon("LoadObjectList", *failure));
}

} // namespace tos
