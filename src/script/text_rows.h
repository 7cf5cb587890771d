#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "script/script_text.h"
#include "support/checked.h"

namespace tos {

class ListBox;

// Joins the parts of one row.
std::string Row(std::initializer_list<std::string_view> parts);

// The parts of head joined, then "[x,y,z]" with six decimals each.
std::string PositionRow(std::initializer_list<std::string_view> head, const MaxPosition& at);

// "[f,f,f]" with eight decimals each.
std::string ScaleValue(double factor);

// The object's name and the copy number, two digits at least: "Tree01".
std::string CopyName(std::string_view object, Int16 copyNumber);

// The rotate rows of a node, "rotate " and its reference in front, for each turn
// whose flag is set, in the order Z, Y, X.
void AppendRotateRows(ListBox& script, std::string_view node, const Turns& turns);

// The classic text and the one for 3ds Max 2008 and later.
std::unique_ptr<ScriptText> MakeClassicText(ListBox& script, std::string_view object);
std::unique_ptr<ScriptText> MakeModernText(ListBox& script, std::string_view object,
                                           bool instances);

} // namespace tos
