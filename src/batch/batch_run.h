#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "batch/batch_list.h"
#include "forms/script_findings.h"
#include "support/platform.h"

namespace tos {

struct App;

enum class BatchOutcome {
    NotChecked, // the item is kept but was not to be processed
    Incomplete, // Select, MaxFile or ObjectName missing: Process was not pressed
    NotInScene, // the object list has no such row: Process was not pressed
    Failed,     // Process showed a message: no script counts as written
    Built,      // the script stands in List2; Save To File was unchecked
    Written,    // the script was saved
};

struct BatchItemReport {
    std::string select;
    BatchOutcome outcome = BatchOutcome::NotChecked;
    std::string scriptFile; // Built and Written only
    std::size_t rows = 0;   // rows of the script, Built and Written only
    std::vector<std::string> missingKeys;
    std::vector<MessageBox> messages;    // the boxes Process would have shown
    std::vector<ScriptFinding> findings; // the check of the script, Built and Written only
    // An earlier item (1-based) whose script file this one's replaced; 0 for none.
    std::size_t replaces = 0;
};

struct BatchReport {
    std::vector<BatchItemReport> items;
    std::string joinedFile; // "" when nothing was joined
    std::size_t joinedScripts = 0;
    std::vector<MessageBox> messages; // boxes of the run itself and of the join
};

// "<ScriptBasePath>_Main_All.ms", or "_Per_All.ms" with the perimeter tiles.
std::string JoinedScriptFile(const App& app);

// Runs the items in their order as a user at the main form would, an item that
// selects the same row as an earlier one too: clears both
// name boxes once, then for each item puts its values into txtMaxFile,
// txtMaxObjectName, the two vertical boxes and the text of comboSelectObject
// (the row as the list writes it, when one matches ignoring case), each firing
// its events, ticks the two style boxes, and presses Process. An item without
// vertical values or style gets those of the list's style, else those the form
// held at the start, and the form gets them back at the end. The message boxes are kept for the
// report, not shown. With Save To File checked, the scripts written are then joined as the combiner
// joins files into joinedFile ("" for JoinedScriptFile).
BatchReport RunBatch(App& app, const std::vector<BatchItem>& items, const BatchStyle& style = {},
                     const std::string& joinedFile = "");

// "Tree: /p/Valley_Main_Tree.ms, 27 rows" and the like.
std::string ItemLine(const BatchItemReport& item);
// "Joined: FILE, N scripts", or why nothing was joined.
std::string JoinedLine(const BatchReport& report);
// Each item with its boxes (a line of the summary for each line of a box) and the
// check's findings below it, the run's own boxes, then the join.
std::vector<std::string> SummaryLines(const BatchReport& report);

} // namespace tos
