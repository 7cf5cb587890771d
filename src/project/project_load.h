#pragma once

namespace tos {

struct App;

// Connects the event routines of the project browse button.
void ConnectProjectEvents(App& app);

} // namespace tos
