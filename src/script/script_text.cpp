#include "script/script_text.h"

#include <string>

#include "forms/controls.h"
#include "forms/run_state.h"
#include "script/text_rows.h"
#include "support/conversions.h"

namespace tos {

namespace {

// The parts joined, with room for extra characters more.
std::string Joined(std::initializer_list<std::string_view> parts, std::size_t extra)
{
    std::size_t size = extra;
    for (std::string_view p : parts)
        size += p.size();
    std::string row;
    row.reserve(size);
    for (std::string_view p : parts)
        row.append(p);
    return row;
}

// Room for a number the script writes: sign, fifteen digits, point and exponent.
constexpr std::size_t kNumberRoom = 24;

} // namespace

std::string Row(std::initializer_list<std::string_view> parts)
{
    return Joined(parts, 0);
}

std::string PositionRow(std::initializer_list<std::string_view> head, const MaxPosition& at)
{
    std::string row = Joined(head, 3 * kNumberRoom + 4);
    row += '[';
    AppendPattern(row, at.x, "0.000000");
    row += ',';
    AppendPattern(row, at.y, "0.000000");
    row += ',';
    AppendPattern(row, at.z, "0.000000");
    row += ']';
    return row;
}

std::string ScaleValue(double factor)
{
    const std::string f = FormatPattern(factor, "0.00000000");
    return Row({"[", f, ",", f, ",", f, "]"});
}

std::string CopyName(std::string_view object, Int16 copyNumber)
{
    return Row({object, FormatPattern(copyNumber.value(), "00")});
}

void AppendRotateRows(ListBox& script, std::string_view node, const Turns& turns)
{
    const auto rotate = [&](double angle, std::string_view axis) {
        std::string row = Joined({"rotate ", node, " (angleaxis "}, kNumberRoom + 2 + axis.size());
        AppendNumberText(row, angle);
        row.append(" ").append(axis).append(")");
        script.AddItem(std::move(row));
    };
    if (turns.rotateZ)
        rotate(turns.angleZ, "[0,0,1]");
    if (turns.rotateY)
        rotate(turns.angleY, "[0,1,0]");
    if (turns.rotateX)
        rotate(turns.angleX, "[1,0,0]");
}

namespace {

// The text for 3ds Max 3.1: every row names its node as $name.
class ClassicText : public ScriptText {
public:
    ClassicText(ListBox& script, std::string_view object) : script_(script), object_(object) {}

    void Head(std::string_view scriptName, std::string_view maxFile) override
    {
        script_.AddItem("-- Tolvarine Object Scripter for 3dsMax 3.1");
        script_.AddItem(Row({"-- Script File Name:  ", scriptName}));
        script_.AddItem("");
        script_.AddItem("");
        script_.AddItem("-- start of script");
        script_.AddItem("clearlistener()");
        script_.AddItem("");
        script_.AddItem("-- perform merge on first object");
        script_.AddItem(
            Row({"mergeMAXFile \"", UpperCase(maxFile), "\" #mergeDups #select #noredraw"}));
        script_.AddItem("");
    }

    void FirstObject(const MaxPosition& at, std::optional<double> scaleFactor) override
    {
        script_.AddItem("-- move the first object into position");
        script_.AddItem("max move");
        script_.AddItem(PositionRow({"$", object_, ".pos = "}, at));
        if (scaleFactor)
            script_.AddItem(Row({"$", object_, ".scale = ", ScaleValue(*scaleFactor)}));
        script_.AddItem("");
        script_.AddItem("-- make copies of the original object and move into postion");
        script_.AddItem("");
    }

    void CopyPlacement(Int16 copyNumber, const MaxPosition& at) override
    {
        const std::string name = CopyName(object_, copyNumber);
        script_.AddItem(Row({"copy $", object_, " isSelected:on name:\"", name, "\""}));
        script_.AddItem(PositionRow({"$", name, ".pos = "}, at));
    }

    void CopyTurns(Int16 copyNumber, const Turns& turns) override
    {
        AppendRotateRows(script_, Row({"$", CopyName(object_, copyNumber)}), turns);
        script_.AddItem("");
    }

    void GoBack(const Turns& turns) override
    {
        script_.AddItem("-- go back and rotate first object (if necessary)");
        script_.AddItem("");
        AppendRotateRows(script_, Row({"$", object_}), turns);
    }

private:
    ListBox& script_;
    std::string object_;
};

} // namespace

std::unique_ptr<ScriptText> MakeClassicText(ListBox& script, std::string_view object)
{
    return std::make_unique<ClassicText>(script, object);
}

Turns TurnsOf(const RunState& state)
{
    return {state.RotateX, state.RotateY, state.RotateZ, state.AngleX, state.AngleY, state.AngleZ};
}

std::unique_ptr<ScriptText> MakeScriptText(ListBox& script, std::string_view object,
                                           ScriptStyle style)
{
    if (style.max2008)
        return MakeModernText(script, object, style.instances);
    return MakeClassicText(script, object);
}

} // namespace tos
