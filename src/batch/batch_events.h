#pragma once

#include <string>
#include <vector>

#include "batch/batch_list.h"

namespace tos {

struct App;
struct BatchForm;

// The main form's "Process All..." button: makes the rows and shows the batch
// window modally. For a project not seen before the rows start empty and its
// default batch list is read if there is one; otherwise each row keeps what it
// held.
void btnProcessAll_Click(App& app, BatchForm& form);

// With keep, the former rows of the batch list or with values, in their order;
// then one row for each row of the object list that no row names.
void MakeBatchRows(App& app, BatchForm& form, bool keep);

// Makes one row for each item of a batch list, in its order, then one for each
// row of the object list that no item names; every problem is listed in one box.
void LoadBatchList(App& app, BatchForm& form, const std::string& file);
// Writes the rows of the list and those that are checked or hold any value; a
// row that cannot run is unchecked and saved so.
void SaveBatchList(App& app, BatchForm& form, const std::string& file);
// The rows as batch items, in their order: those of the list and those that
// are checked or hold any value.
std::vector<BatchItem> BatchItems(const BatchForm& form);

void btnLoad_Click(App& app, BatchForm& form);
void btnSave_Click(App& app, BatchForm& form);
// Runs the items of the rows in their order, as tos-cli batch does, and fills
// the summary.
void btnRunBatch_Click(App& app, BatchForm& form);
// Hides the window; tells the user when the table differs from the batch list
// last read or saved.
void btnClose_Click(App& app, BatchForm& form);

// Connects the main form's button and the buttons of the App's batch form.
void ConnectBatchEvents(App& app);

} // namespace tos
