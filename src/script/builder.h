#pragma once

#include "forms/record_walk.h"

namespace tos {

struct App;

// What sets one builder apart from another; everything else they share.
struct BuilderKind {
    const char* routine;     // name in the trap message
    RecordWalk walk;         // record list walked and how its rows read
    const char* fileSubject; // names the file; nullptr: the selection does
};

// Builds the script of kind into List2 from the form and the scene, and saves it
// when SaveToFile is set. Any failure ends the build with one message.
void RunBuilder(App& app, const BuilderKind& kind);

// The builder of an object row: the rows of lstSCNdata2 whose stem is the selection.
void BuildScript(App& app);

} // namespace tos
