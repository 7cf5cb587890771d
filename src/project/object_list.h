#pragma once

namespace tos {

struct App;

// Fills comboSelectObject: one option row for each stock group the scene has,
// then one row for each distinct object stem. The box's text is emptied.
void LoadObjectList(App& app);

} // namespace tos
