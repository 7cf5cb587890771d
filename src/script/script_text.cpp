#include "script/script_text.h"

#include <string>

#include "shell/controls.h"
#include "shell/run_state.h"
#include "support/conversions.h"

namespace tos {

namespace {

std::string Coordinate(double value)
{
    return FormatPattern(value, "0.000000");
}

std::string Bracketed(const std::string& a, const std::string& b, const std::string& c)
{
    return "[" + a + "," + b + "," + c + "]";
}

std::string PositionRow(std::string_view name, const MaxPosition& at)
{
    return "$" + std::string(name) +
           ".pos = " + Bracketed(Coordinate(at.x), Coordinate(at.y), Coordinate(at.z));
}

std::string CopyName(std::string_view object, Int16 copyNumber)
{
    return std::string(object) + FormatPattern(copyNumber.value(), "00");
}

// Rotate rows in the order Z, Y, X, for those axes whose flag is set.
void AppendRotateRows(ListBox& script, std::string_view name, const Turns& turns)
{
    const std::string head = "rotate $" + std::string(name) + " (angleaxis ";
    if (turns.rotateZ)
        script.AddItem(head + NumberToText(turns.angleZ) + " [0,0,1])");
    if (turns.rotateY)
        script.AddItem(head + NumberToText(turns.angleY) + " [0,1,0])");
    if (turns.rotateX)
        script.AddItem(head + NumberToText(turns.angleX) + " [1,0,0])");
}

} // namespace

Turns TurnsOf(const RunState& state)
{
    return {state.RotateX, state.RotateY, state.RotateZ, state.AngleX, state.AngleY, state.AngleZ};
}

void AppendHeadBlock(ListBox& script, std::string_view scriptName, std::string_view maxFile)
{
    script.AddItem("-- Tolvarine Object Scripter for 3dsMax 3.1");
    script.AddItem("-- Script File Name:  " + std::string(scriptName));
    script.AddItem("");
    script.AddItem("");
    script.AddItem("-- start of script");
    script.AddItem("clearlistener()");
    script.AddItem("");
    script.AddItem("-- perform merge on first object");
    script.AddItem("mergeMAXFile \"" + UpperCase(maxFile) + "\" #mergeDups #select #noredraw");
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
        script.AddItem("$" + std::string(object) + ".scale = " + Bracketed(f, f, f));
    }
    script.AddItem("");
    script.AddItem("-- make copies of the original object and move into postion");
    script.AddItem("");
}

void AppendCopyPlacement(ListBox& script, std::string_view object, Int16 copyNumber,
                         const MaxPosition& at)
{
    const std::string name = CopyName(object, copyNumber);
    script.AddItem("copy $" + std::string(object) + " isSelected:on name:\"" + name + "\"");
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
