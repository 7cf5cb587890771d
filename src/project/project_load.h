#pragma once

namespace tos {

struct App;

// Connects the event routines of the project browse button.
void ConnectProjectEvents(App& app);

// The user chose a project: finds its scene beside it, reads the scene into the
// record lists and the object list, and opens the Process command. A cancelled
// dialog or a missing scene leaves the former project in place.
void btnBrowseProjectFile_Click(App& app);

// Puts TerrainWidth and TerrainWidthScale of the scene into their boxes.
void GetProjectInfo(App& app);

} // namespace tos
