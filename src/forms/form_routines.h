#pragma once

#include <string>

#include "support/platform.h"

namespace tos {

struct App;

// "Software\" and the program's name: where the remembered folders are kept.
std::string SettingsKey(const App& app);

// Writes both remembered folders; a failed write is silent.
void SaveSettings(App& app);

// The names of the two script styles in the settings, batch lists and tos-cli.
inline constexpr const char* kClassicStyle = "classic";
inline constexpr const char* kMax2008Style = "max2008";

// The script style and the instances box, remembered beside the folders. A
// fresh installation starts in the classic style; a failed read or write is silent.
void SaveScriptStyle(App& app);
void RestoreScriptStyle(App& app);

// Unloads both forms and ends the run.
void ExitProgram(App& app);

// Place a form in the middle of the screen, top edge and left edge. A screen
// too large for 16 bits puts the form at the edge.
void CenterFormVertical(App& app, FormId form);
void CenterFormHorizontal(App& app, FormId form);

// The remembered-folder store. Note the different argument orders.
std::string GetRegStr(App& app, const std::string& key, const std::string& valueName, int root);
void SetRegStr(App& app, const std::string& valueName, const std::string& value,
               const std::string& key, int root);

inline constexpr int kHkeyCurrentUser = static_cast<int>(0x80000001u);

} // namespace tos
