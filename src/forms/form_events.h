#pragma once

#include <string>

#include "support/platform.h"

namespace tos {

struct App;
class TextBox;

// Connects the event routines of the tile, save, scale and grid boxes, the .max browse, help and
// exit.
void ConnectMainFormEvents(App& app);

// The two tile boxes work as one choice with two settings.
void chkMainTile_Click(App& app);
void chkPerimeterTile_Click(App& app);
void chkSave_Click(App& app);
// Makes the scale box or the grid box the one the user edits.
void chkUseObjectScale_Click(App& app);
// The script style: the instances box only counts, and is only enabled, with the
// 2008-and-later style. Both are remembered as they change.
void chkMax2008_Click(App& app);
void chkInstances_Click(App& app);
// Clean what was typed into a whole grid size or a six-decimal scale.
void txtGridSize_LostFocus(App& app);
void txtObjectScale_LostFocus(App& app);
void btnBrowseMaxFile_Click(App& app);
// Asks for a .max file over the given form and puts the choice into box; the folder is
// remembered for the next time, whichever form asked.
void BrowseMaxFileInto(App& app, FormId form, TextBox& box);
void btnViewHelp_Click(App& app);
void btnExit_Click(App& app);

// Opens a document with the desktop's handler; tells the user when that fails.
void LaunchHelp(App& app, const std::string& file);

} // namespace tos
