#pragma once

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

// Every row of a generated script is composed here and appended to the script
// buffer one by one, in the order the script runs.

// The ten rows that open every script. maxFile is written in capitals.
void AppendHeadBlock(ListBox& script, std::string_view scriptName, std::string_view maxFile);

// The merged object moved to its place; the scale row only with a scale factor.
void AppendFirstObjectBlock(ListBox& script, std::string_view object, const MaxPosition& at,
                            std::optional<double> scaleFactor);

// The copy rows in two parts, because the copy's turns are worked out between them.
void AppendCopyPlacement(ListBox& script, std::string_view object, Int16 copyNumber,
                         const MaxPosition& at);
void AppendCopyTurns(ListBox& script, std::string_view object, Int16 copyNumber,
                     const Turns& turns);

// The closing rows that turn the merged object itself, after all copies.
void AppendGoBackBlock(ListBox& script, std::string_view object, const Turns& turns);

} // namespace tos
