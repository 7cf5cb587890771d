#pragma once

namespace tos::gui {

// Starts the desktop program and runs its event loop; returns the exit status.
int RunApplication(int argc, char** argv);

} // namespace tos::gui
