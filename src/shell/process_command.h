#pragma once

namespace tos {

struct App;

// Connects the event routines of Process and the object name modes.
void ConnectProcessEvents(App& app);

} // namespace tos
