#pragma once

#include <string>

#include "forms/controls.h"

namespace tos {

// The scene map window as a model. It holds no data of the program: the window
// draws a map of the main form's state while visible is set.
struct SceneMapForm {
    std::string caption = "Scene Map";
    bool visible = false;
    ViewNotifier formView; // visibility, and a request to come to the front
    // A front end without a window of its own for the map clears this; the
    // button then writes the picture beside the project and opens it.
    bool drawnInWindow = true;
};

} // namespace tos
