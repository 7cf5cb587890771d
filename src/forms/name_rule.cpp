#include "forms/name_rule.h"

#include "support/conversions.h"
#include "support/elements.h"

namespace tos {

void UseTolvarineNameClicked(NameBoxes boxes, const std::string& selection)
{
    if (!boxes.useTolvarineName.Checked())
        return;
    boxes.useMaxName.SetValue(0);
    boxes.objectName.SetText(selection);
}

void UseMaxNameClicked(Platform& platform, NameBoxes boxes, const std::string& maxFile)
{
    if (!boxes.useMaxName.Checked())
        return;
    boxes.useTolvarineName.SetValue(0);
    boxes.objectName.SetText(GetBaseName(platform, maxFile));
}

void SelectionChanged(NameBoxes boxes, const std::string& selection)
{
    if (boxes.useTolvarineName.Checked())
        boxes.objectName.SetText(selection);
}

void MaxFileChanged(Platform& platform, NameBoxes boxes, const std::string& maxFile)
{
    if (boxes.useMaxName.Checked())
        boxes.objectName.SetText(GetBaseName(platform, maxFile));
}

const std::string* FindRowIgnoringCase(const ListBox& list, const std::string& text)
{
    for (const std::string& row : list.Rows())
        if (EqualsIgnoringCase(row, text))
            return &row;
    return nullptr;
}

} // namespace tos
