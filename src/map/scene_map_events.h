#pragma once

#include <string>

namespace tos {

struct App;

// Shows the scene map window, or brings it to the front. Nothing else changes.
// A desktop without a map window gets the picture opened instead (OpenSceneMapFile).
void btnSceneMap_Click(App& app);

// The picture of the map beside the project: "<ScriptBasePath>_Map.svg".
std::string SceneMapFile(const App& app);

// Writes the map of the form's present state (the last load, the selection and
// the tile choice) as an SVG picture, replacing the file. The picture is made
// before the file is opened. Failures travel as Failure.
void WriteSceneMapFile(App& app, const std::string& path);

// Writes the map to SceneMapFile and opens it with the desktop's handler; each
// problem is one message box.
void OpenSceneMapFile(App& app);

void ConnectSceneMapEvents(App& app);

} // namespace tos
