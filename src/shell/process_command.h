#pragma once

namespace tos {

struct App;

// Checks the form, then hands the selection to its builder under the hourglass.
void btnProcess_Click(App& app);

// The object name modes: txtMaxObjectName follows the selection or the .max file.
void chkUseTolvarineName_Click(App& app);
void chkUseMaxName_Click(App& app);
// The one routine of the six events of comboSelectObject.
void comboSelectObject_Changed(App& app);
// The one routine of the five events of txtMaxFile.
void txtMaxFile_Changed(App& app);

// Connects the event routines of Process and the object name modes.
void ConnectProcessEvents(App& app);

} // namespace tos
