#pragma once

#include "win/platform/win32.h"

namespace tos::win::ui {

// Runs the message loop of the main window until the program ends; returns the
// exit status. Keys go through the dialog manager first, so Tab and the
// accelerators of the captions work as in a dialog.
int RunMessageLoop(HWND mainWindow);

// Starts the desktop program on the Win32 platform services and runs it.
int RunApplication();

} // namespace tos::win::ui
