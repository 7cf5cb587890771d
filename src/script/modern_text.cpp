#include <string>

#include "forms/controls.h"
#include "script/maxscript_literals.h"
#include "script/text_rows.h"
#include "support/conversions.h"

namespace tos {

namespace {

// The text for 3ds Max 2008 and later. The object's name and the path stand
// once each, as literals MAXScript reads exactly; every later row works on the
// merged node through a variable, so no name is ever looked up in the scene.
// The whole script is one block, so scripts joined into one file run in turn.
class ModernText : public ScriptText {
public:
    ModernText(ListBox& script, std::string_view object, bool instances)
        : script_(script), object_(object),
          make_(instances ? "c = instance first name:" : "c = copy first name:"),
          instances_(instances)
    {
    }

    void Head(std::string_view scriptName, std::string_view maxFile) override
    {
        script_.AddItem("-- Tolvarine Object Scripter for 3ds Max 2008 and later");
        script_.AddItem(Row({"-- Script File Name:  ", scriptName}));
        script_.AddItem(instances_ ? "-- Copies: instances of the first object"
                                   : "-- Copies: independent copies of the first object");
        script_.AddItem("");
        script_.AddItem("(");
        script_.AddItem("-- start of script");
        script_.AddItem(Row({"local maxFile = ", PathLiteral(maxFile)}));
        script_.AddItem(Row({"local objectName = ", StringLiteral(object_)}));
        script_.AddItem("local first = undefined");
        script_.AddItem("local c = undefined");
        script_.AddItem("local placed = #()");
        script_.AddItem("");
        // Nothing of the run goes on the undo stack: one Delete of the selection at
        // the end takes it back.
        script_.AddItem("-- perform merge on first object");
        script_.AddItem("with undo off");
        script_.AddItem("(");
        script_.AddItem("clearSelection()");
        script_.AddItem("if doesFileExist maxFile do mergeMAXFile maxFile #select #mergeDups "
                        "#noRedraw");
        script_.AddItem("placed = selection as array");
        script_.AddItem(")");
        script_.AddItem("for n in placed where first == undefined and (stricmp n.name "
                        "objectName) == 0 do first = n");
        script_.AddItem("if first == undefined then messageBox (\"No object named \\\"\" + "
                        "objectName + \"\\\" could be merged from \" + maxFile) "
                        "title:\"Tolvarine Object Scripter\" else with undo off, redraw off");
        script_.AddItem("(");
        script_.AddItem("");
    }

    void FirstObject(const MaxPosition& at, std::optional<double> scaleFactor) override
    {
        script_.AddItem("-- move the first object into position");
        script_.AddItem(PositionRow({"first.pos = "}, at));
        if (scaleFactor)
            script_.AddItem(Row({"first.scale = ", ScaleValue(*scaleFactor)}));
        script_.AddItem("");
        script_.AddItem("-- make copies of the first object and move them into position");
        script_.AddItem("");
    }

    void CopyPlacement(Int16 copyNumber, const MaxPosition& at) override
    {
        script_.AddItem(Row({make_, StringLiteral(CopyName(object_, copyNumber))}));
        script_.AddItem(PositionRow({"c.pos = "}, at));
    }

    void CopyTurns(Int16, const Turns& turns) override
    {
        AppendRotateRows(script_, "c", turns);
        script_.AddItem("append placed c");
        script_.AddItem("");
    }

    void GoBack(const Turns& turns) override
    {
        script_.AddItem("-- go back and rotate first object (if necessary)");
        script_.AddItem("");
        AppendRotateRows(script_, "first", turns);
    }

    void End() override
    {
        script_.AddItem("select placed");
        script_.AddItem(")");
        script_.AddItem("redrawViews()");
        script_.AddItem(")");
    }

private:
    ListBox& script_;
    std::string object_;
    std::string make_;
    bool instances_;
};

} // namespace

std::unique_ptr<ScriptText> MakeModernText(ListBox& script, std::string_view object, bool instances)
{
    return std::make_unique<ModernText>(script, object, instances);
}

} // namespace tos
