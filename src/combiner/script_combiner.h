#pragma once

namespace tos {

struct App;

// Connects the event routines of the combiner's buttons and its opening from the main form.
void ConnectCombinerEvents(App& app);

} // namespace tos
