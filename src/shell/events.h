#pragma once

namespace tos {

struct App;

// Connects every event routine of both forms to its control. Each area connects
// its own routines; this calls them all, once, at start-up.
void ConnectEvents(App& app);

} // namespace tos
