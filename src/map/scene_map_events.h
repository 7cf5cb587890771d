#pragma once

namespace tos {

struct App;

// Shows the scene map window, or brings it to the front. Nothing else changes.
void btnSceneMap_Click(App& app);

void ConnectSceneMapEvents(App& app);

} // namespace tos
