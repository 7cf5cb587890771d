#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/batch_items.h"
#include "forms/controls.h"

namespace tos {

// One object row of the batch window: a line of the table, one control per
// column. Its controls are named after the row's index ("txtMaxFile_3").
struct BatchRow {
    BatchRow(int index, const std::string& selection);
    BatchRow(const BatchRow&) = delete;
    BatchRow& operator=(const BatchRow&) = delete;

    const std::string selection; // the row of the object list
    CheckBox chkProcess;         // captioned with the selection
    TextBox txtMaxFile;
    Button btnBrowseMaxFile;
    TextBox txtObjectName;
    CheckBox chkUseTolvarineName;
    CheckBox chkUseMaxName;
    TextBox txtVerticalScale; // "" means the main form's value
    TextBox txtVerticalOffset;
    // What the row's item holds beyond its boxes, kept for the run and the save: its
    // own script style and the lines of its section the program does not read.
    std::optional<bool> max2008;
    std::optional<bool> instances;
    std::vector<std::string> otherLines;
    bool listed = false; // the row stands for an item of the batch list read
    // Tells a view that one of the row's controls changed, so it redraws the line.
    ViewNotifier lineView;
};

// The columns of the batch table, left to right, as both windows show them.
enum class BatchColumn {
    Process,
    MaxFile,
    Browse,
    ObjectName,
    UseTolvarine,
    UseMax,
    Scale,
    Offset
};
inline constexpr int kBatchColumns = 8;

// The heading of a column; "" where the heading to its left goes on.
const char* BatchHeading(BatchColumn column);

// The control a row shows in a column: exactly one of the three is set. A
// window shows a check box with its caption, a text box's text and a button's
// caption; the user's click, edit or press goes to that control.
struct BatchCell {
    CheckBox* check = nullptr;
    TextBox* text = nullptr;
    Button* button = nullptr;
    Control& Of() const;
};
BatchCell CellOf(BatchRow& row, BatchColumn column);

// The "Process All" window as a model: one row for each item of the batch list
// read, in its order, then one for each row of the object list that no item
// names; the batch list file it was read from or saved to, and the summary of
// the last run. Shown modally over the main form.
struct BatchForm {
    BatchForm();
    BatchForm(const BatchForm&) = delete;
    BatchForm& operator=(const BatchForm&) = delete;

    std::string caption = "Process All";
    bool visible = false;
    int mousePointer = 0;
    ViewNotifier formView; // visibility and pointer
    ViewNotifier rowsView; // the rows were replaced
    // Asks the view to show the form modally; the model alone just marks it visible.
    std::function<void()> showModal;
    // ScriptBasePath of the project the rows were made for.
    std::string rowsProject;
    // The batch list as last read or saved: its items tell closing about changes
    // that no file keeps yet; its style and other lines go into the next save.
    BatchList kept;

    std::vector<std::unique_ptr<BatchRow>> rows;
    Control tblRows; // the table of the rows as a whole
    Label lblBatchFile;
    TextBox txtBatchFile;
    Button btnLoad;
    Button btnSave;
    Button btnRunBatch; // "Process All"
    Button btnClose;
    Label lblSummary;
    ListBox lstSummary; // unsorted
};

} // namespace tos
