#pragma once

#include <string>

#include "support/checked.h"
#include "support/platform.h"

namespace tos {

struct App;

// The one way the program chooses files: the full path of an existing file, or
// "" for a Cancel or any failure of the dialog.
std::string ShowCommonDialog(App& app, FormId form, const std::string& title,
                             const std::string& initialFolder, const std::string& filter,
                             Int16 filterIndex, bool save, const std::string& fileName);

} // namespace tos
