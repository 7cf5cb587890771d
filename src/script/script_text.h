#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "support/checked.h"

namespace tos {

class ListBox;
struct RunState;

// A position in 3ds Max units.
struct MaxPosition {
    double x = 0, y = 0, z = 0;
};

// The turns of one model as the orientation routines left them.
struct Turns {
    bool rotateX = false, rotateY = false, rotateZ = false;
    double angleX = 0, angleY = 0, angleZ = 0;
};

Turns TurnsOf(const RunState& state);

// Which text a script is written in. Classic is the text for 3ds Max 3.1;
// max2008 reads every name and path exactly and makes copies or instances.
struct ScriptStyle {
    bool max2008 = false;
    bool instances = false; // max2008 only
};

// Every row of a generated script is composed here and appended to the script
// buffer one by one, in the order the script runs. The builder decides which
// block comes when; each style writes the rows of a block in its own text.
class ScriptText {
public:
    virtual ~ScriptText() = default;

    // The rows that open every script.
    virtual void Head(std::string_view scriptName, std::string_view maxFile) = 0;
    // The merged object moved to its place; the scale row only with a scale factor.
    virtual void FirstObject(const MaxPosition& at, std::optional<double> scaleFactor) = 0;
    // The copy rows in two parts, because the copy's turns are worked out between them.
    virtual void CopyPlacement(Int16 copyNumber, const MaxPosition& at) = 0;
    virtual void CopyTurns(Int16 copyNumber, const Turns& turns) = 0;
    // The rows that turn the merged object itself, after all copies.
    virtual void GoBack(const Turns& turns) = 0;
    // The rows behind the last block; the classic text has none.
    virtual void End() {}
};

// The text of a style, for the object named object, appending to script.
std::unique_ptr<ScriptText> MakeScriptText(ListBox& script, std::string_view object,
                                           ScriptStyle style);

} // namespace tos
