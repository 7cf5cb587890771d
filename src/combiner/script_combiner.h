#pragma once

#include <string>

namespace tos {

struct App;
class ListBox;

// The main form's button: empties the list and shows the combiner modally.
void btnRunScriptCompiler_Click(App& app);

// The combiner form's load event: centres the form on the screen.
void CompilerForm_Load(App& app);

// Appends the lines of a chosen script, then two empty rows.
void btnAddFile_Click(App& app);
// The same for a script already chosen; a failure shows btnAddFile's message.
void AddScriptFile(App& app, const std::string& path);

// Appends the lines of a script file and two empty rows to a list, as Add File
// does; a failure travels as Failure and leaves the rows added so far.
void AppendScriptFile(ListBox& list, const std::string& path);

// Writes every row of the list, each with CR LF, to a chosen file.
void btnSaveAs_Click(App& app);
// The same for a file already chosen, which need not exist yet; a failure
// shows btnSaveAs's message.
void SaveCombinedScript(App& app, const std::string& path);

// Hides the combiner; the list stays until the next opening.
void btnDone_Click(App& app);

// Connects the event routines of the combiner's buttons and its opening from the main form.
void ConnectCombinerEvents(App& app);

} // namespace tos
