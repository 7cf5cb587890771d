#pragma once

#include "win/platform/win32.h"

#include <functional>
#include <string>

#include "support/platform.h"

namespace tos::win {

// "PRJ File (*.prj)|*.prj" in the API's form: every "|" a zero, and two zeros at the end.
std::string DialogFilter(const std::string& filter);

// Shows the dialog (GetOpenFileNameA or GetSaveFileNameA, or show when given, which
// tests use) owned by owner. The request's flags go to the dialog unchanged: with 4096
// alone the dialog makes the chosen file's folder the current directory; Cancel leaves
// it as it was. The full path of the chosen file, or "" for Cancel and every failure.
using FileDialogCall = std::function<BOOL(OPENFILENAMEA&)>;
std::string ShowFileDialog(HWND owner, const FileDialogRequest& request,
                           const FileDialogCall& show = {});

} // namespace tos::win
