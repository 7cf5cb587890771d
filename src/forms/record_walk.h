#pragma once

#include <array>
#include <string>

#include "forms/main_form.h"
#include "support/checked.h"

namespace tos {

class Platform;

// How a builder walks a record list of the main form: which list, whether only
// the rows whose stem is the selection count, and which field holds the model number.
struct RecordWalk {
    ListBox MainForm::*list;
    bool matchesSelection;
    Int16 modelNumberField;
};

// The rows of an object row's builder: stem|number|copy.
inline constexpr RecordWalk kObjectRows{&MainForm::lstSCNdata2, true, Int16(1)};

// The rows of the four stock groups, number|value, in the order of the option rows.
inline constexpr std::array<RecordWalk, 4> kStockGroupRows{{
    {&MainForm::lstBillboards, false, Int16(0)},
    {&MainForm::lstBales, false, Int16(0)},
    {&MainForm::lstTripleBales, false, Int16(0)},
    {&MainForm::lst55GalDrums_TrashCans, false, Int16(0)},
}};

// 1 to 4 when the text before the selection's first ":" is the keyword of an
// option row ("* Option 1", case-blind); 0 for anything else, an object row.
int StockOptionOf(Platform& platform, const std::string& selection);

// The walk that the selection's builder makes.
const RecordWalk& WalkOfSelection(Platform& platform, const std::string& selection);

// Whether a row of the walk belongs to the selection: every row, or those whose
// stem equals it exactly.
bool RowCounts(Platform& platform, const RecordWalk& walk, const std::string& row,
               const std::string& selection);

// The model number of a row (failure 6 when it is out of the 32-bit range).
Int32 ModelNumberOfRow(Platform& platform, const RecordWalk& walk, const std::string& row);

} // namespace tos
