#pragma once

namespace tos {

struct App;

// Connects the event routines of the tile, save, scale and grid boxes, the .max browse, help and exit.
void ConnectMainFormEvents(App& app);

} // namespace tos
