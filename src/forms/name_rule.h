#pragma once

#include <string>

#include "forms/controls.h"

namespace tos {

class Platform;

// The two name boxes of the main form and of each batch row: the object name
// follows the selected row or the .max file's base name, whichever box is
// checked, and checking one unchecks the other.
struct NameBoxes {
    CheckBox& useTolvarineName;
    CheckBox& useMaxName;
    TextBox& objectName;
};

// The click of either box: a box that became checked rules the name from now on.
void UseTolvarineNameClicked(NameBoxes boxes, const std::string& selection);
void UseMaxNameClicked(Platform& platform, NameBoxes boxes, const std::string& maxFile);

// A change of a source: the name follows it when that source's box is checked.
void SelectionChanged(NameBoxes boxes, const std::string& selection);
void MaxFileChanged(Platform& platform, NameBoxes boxes, const std::string& maxFile);

// The first row of list equal to text without regard to case (as the Process
// command compares), or nullptr.
const std::string* FindRowIgnoringCase(const ListBox& list, const std::string& text);

} // namespace tos
