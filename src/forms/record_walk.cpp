#include "forms/record_walk.h"

#include "support/conversions.h"
#include "support/element_view.h"
#include "support/elements.h"

namespace tos {

namespace {

constexpr std::array<const char*, 4> kOptionKeywords{"* OPTION 1", "* OPTION 2", "* OPTION 3",
                                                     "* OPTION 4"};

} // namespace

int StockOptionOf(Platform& platform, const std::string& selection)
{
    const std::string keyword = UpperCase(GetElement(platform, selection, ":", Int16(0)));
    for (std::size_t i = 0; i < kOptionKeywords.size(); ++i)
        if (keyword == kOptionKeywords[i])
            return static_cast<int>(i) + 1;
    return 0;
}

const RecordWalk& WalkOfSelection(Platform& platform, const std::string& selection)
{
    const int option = StockOptionOf(platform, selection);
    return option == 0 ? kObjectRows : kStockGroupRows[static_cast<std::size_t>(option - 1)];
}

bool RowCounts(Platform& platform, const RecordWalk& walk, const std::string& row,
               const std::string& selection)
{
    return !walk.matchesSelection || ElementOrMessage(platform, row, "|", 0) == selection;
}

Int32 ModelNumberOfRow(Platform& platform, const RecordWalk& walk, const std::string& row)
{
    return ToInt32(TextToNumber(ElementOrMessage(platform, row, "|", walk.modelNumberField.value())));
}

} // namespace tos
