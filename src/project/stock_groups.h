#pragma once

namespace tos {

struct App;
struct MainForm;

// Each lists the scene's models of one stock group that lie in the chosen tiles,
// as rows "number|model value" in its list of the form.
void ProcessBillboards(App& app, MainForm& form);
void ProcessBales(App& app, MainForm& form);
void ProcessTripleBales(App& app, MainForm& form);
void Process55GalDrums_TrashCans(App& app, MainForm& form);

} // namespace tos
