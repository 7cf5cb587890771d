#include "script/script_text.h"

#include <initializer_list>
#include <string>

#include "forms/controls.h"
#include "forms/run_state.h"
#include "support/conversions.h"

namespace tos {

namespace {

// Joins the parts of one row.
std::string Row(std::initializer_list<std::string_view> parts)
{
    std::size_t size = 0;
    for (std::string_view p : parts)
        size += p.size();
    std::string row;
    row.reserve(size);
    for (std::string_view p : parts)
        row.append(p);
    return row;
}

std::string Bracketed(const std::string& a, const std::string& b, const std::string& c)
{
    return Row({"[", a, ",", b, ",", c, "]"});
}

std::string PositionRow(std::string_view name, const MaxPosition& at)
{
    return Row({"$", name, ".pos = ",
                Bracketed(FormatPattern(at.x, "0.000000"), FormatPattern(at.y, "0.000000"),
                          FormatPattern(at.z, "0.000000"))});
}

std::string CopyName(std::string_view object, Int16 copyNumber)
{
    return Row({object, FormatPattern(copyNumber.value(), "00")});
}

// Rotate rows in the order Z, Y, X, for those axes whose flag is set.
void AppendRotateRows(ListBox& script, std::string_view name, const Turns& turns)
{
    const auto rotate = [&](double angle, std::string_view axis) {
        script.AddItem(
            Row({"rotate $", name, " (angleaxis ", NumberToText(angle), " ", axis, ")"}));
    };
    if (turns.rotateZ)
        rotate(turns.angleZ, "[0,0,1]");
    if (turns.rotateY)
        rotate(turns.angleY, "[0,1,0]");
    if (turns.rotateX)
        rotate(turns.angleX, "[1,0,0]");
}

} // namespace

Turns TurnsOf(const RunState& state)
{
    return {state.RotateX, state.RotateY, state.RotateZ, state.AngleX, state.AngleY, state.AngleZ};
}

void AppendHeadBlock(ListBox& script, std::string_view scriptName, std::string_view maxFile)
{
    script.AddItem("-- Tolvarine Object Scripter for 3dsMax 3.1");
    script.AddItem(Row({"-- Script File Name:  ", scriptName}));
    script.AddItem("");
    script.AddItem("");
    script.AddItem("-- start of script");
    script.AddItem("clearlistener()");
    script.AddItem("");
    script.AddItem("-- perform merge on first object");
    script.AddItem(Row({"mergeMAXFile \"", UpperCase(maxFile), "\" #mergeDups #select #noredraw"}));
    script.AddItem("");
}

void AppendFirstObjectBlock(ListBox& script, std::string_view object, const MaxPosition& at,
                            std::optional<double> scaleFactor)
{
    script.AddItem("-- move the first object into position");
    script.AddItem("max move");
    script.AddItem(PositionRow(object, at));
    if (scaleFactor) {
        const std::string f = FormatPattern(*scaleFactor, "0.00000000");
        script.AddItem(Row({"$", object, ".scale = ", Bracketed(f, f, f)}));
    }
    script.AddItem("");
    script.AddItem("-- make copies of the original object and move into postion");
    script.AddItem("");
}

void AppendCopyPlacement(ListBox& script, std::string_view object, Int16 copyNumber,
                         const MaxPosition& at)
{
    const std::string name = CopyName(object, copyNumber);
    script.AddItem(Row({"copy $", object, " isSelected:on name:\"", name, "\""}));
    script.AddItem(PositionRow(name, at));
}

void AppendCopyTurns(ListBox& script, std::string_view object, Int16 copyNumber, const Turns& turns)
{
    AppendRotateRows(script, CopyName(object, copyNumber), turns);
    script.AddItem("");
}

void AppendGoBackBlock(ListBox& script, std::string_view object, const Turns& turns)
{
    script.AddItem("-- go back and rotate first object (if necessary)");
    script.AddItem("");
    AppendRotateRows(script, object, turns);
}

} // namespace tos
