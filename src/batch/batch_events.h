#pragma once

#include <string>
#include <vector>

#include "batch/batch_list.h"

namespace tos {

struct App;
struct BatchForm;

// The main form's "Process All..." button: makes the rows for the object list
// and shows the batch window modally. For a project not seen before the rows
// start empty and its default batch list is read if there is one; otherwise
// each row keeps what it held.
void btnProcessAll_Click(App& app, BatchForm& form);

// One row for each row of the object list, with the values of a former row of
// the same selection when keep is set.
void MakeBatchRows(App& app, BatchForm& form, bool keep);

// Fills the rows from a batch list; every problem is listed in one box.
void LoadBatchList(App& app, BatchForm& form, const std::string& file);
// Writes the rows that are checked or hold any value.
void SaveBatchList(App& app, BatchForm& form, const std::string& file);
// The rows as batch items: those that are checked or hold any value.
std::vector<BatchItem> BatchItems(const BatchForm& form);

void btnLoad_Click(App& app, BatchForm& form);
void btnSave_Click(App& app, BatchForm& form);
// Runs the checked rows in their order and fills the summary.
void btnRunBatch_Click(App& app, BatchForm& form);
// Hides the window; tells the user when the table differs from the batch list
// last read or saved.
void btnClose_Click(App& app, BatchForm& form);

// Connects the main form's button and the batch form's own buttons.
void ConnectBatchEvents(App& app, BatchForm& form);

} // namespace tos
