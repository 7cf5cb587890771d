#pragma once

namespace tos {

struct App;

// One script for a whole stock group: every model of the group's list becomes a
// copy of the one object named on the form. The file is named for the group.
void BuildBillboardScript(App& app);
void BuildBaleScript(App& app);
void BuildTripleBaleScript(App& app);
void Build55GalDrum_TrashCanScript(App& app);

} // namespace tos
