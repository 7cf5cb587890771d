#pragma once

#include <string>

namespace tos {

struct App;

// What a caller may set before start-up; the desktop program sets nothing.
struct StartOptions {
    // The stock catalogue profile file; "" means the one beside the program.
    std::string iniFile;
};

// Fixes the run state, restores the remembered folders, loads both forms, shows
// the main form and loads the stock catalogue.
void Main(App& app, const StartOptions& options = {});

} // namespace tos
