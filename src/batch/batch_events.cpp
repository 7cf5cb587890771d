#include "batch/batch_events.h"

#include <string_view>
#include <unordered_set>

#include "batch/batch_run.h"
#include "forms/app.h"
#include "forms/batch_form.h"
#include "forms/common_dialog.h"
#include "forms/form_events.h"
#include "forms/name_rule.h"
#include "support/case_blind.h"
#include "support/conversions.h"
#include "support/elements.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

namespace {

constexpr const char* kBatchFilter = "Batch List (*.tosbatch)|*.tosbatch";

NameBoxes NameBoxesOf(BatchRow& row)
{
    return {row.chkUseTolvarineName, row.chkUseMaxName, row.txtObjectName};
}

// The name boxes of a row work as those of the main form.
void ConnectRow(App& app, BatchRow& row)
{
    row.chkUseTolvarineName.Click.Connect(
        [&row] { UseTolvarineNameClicked(NameBoxesOf(row), row.selection); });
    row.chkUseMaxName.Click.Connect(
        [&app, &row] { UseMaxNameClicked(app.platform, NameBoxesOf(row), row.txtMaxFile.Text()); });
    row.txtMaxFile.Change.Connect(
        [&app, &row] { MaxFileChanged(app.platform, NameBoxesOf(row), row.txtMaxFile.Text()); });
    row.btnBrowseMaxFile.Click.Connect(
        [&app, &row] { BrowseMaxFileInto(app, FormId::Batch, row.txtMaxFile); });
}

BatchRow& AddRow(App& app, BatchForm& form, const std::string& selection)
{
    auto row = std::make_unique<BatchRow>(static_cast<int>(form.rows.size()), selection);
    ConnectRow(app, *row);
    form.rows.push_back(std::move(row));
    return *form.rows.back();
}

// Puts an item's values into a row; the name boxes go last, as a user would tick them.
void FillRow(BatchRow& row, const BatchItem& item)
{
    row.chkProcess.SetValue(item.process ? 1 : 0);
    row.txtMaxFile.SetText(item.maxFile);
    row.txtObjectName.SetText(item.objectName);
    row.txtVerticalScale.SetText(item.verticalScale.value_or(""));
    row.txtVerticalOffset.SetText(item.verticalOffset.value_or(""));
    row.chkUseTolvarineName.SetValue(item.nameFrom == NameFrom::Tolvarine ? 1 : 0);
    row.chkUseMaxName.SetValue(item.nameFrom == NameFrom::MaxFile ? 1 : 0);
    row.max2008 = item.max2008;
    row.instances = item.instances;
    row.otherLines = item.otherLines;
}

BatchItem ItemOf(const BatchRow& row)
{
    BatchItem item;
    item.select = row.selection;
    item.maxFile = row.txtMaxFile.Text();
    item.objectName = row.txtObjectName.Text();
    item.process = row.chkProcess.Checked();
    if (!row.txtVerticalScale.Text().empty())
        item.verticalScale = row.txtVerticalScale.Text();
    if (!row.txtVerticalOffset.Text().empty())
        item.verticalOffset = row.txtVerticalOffset.Text();
    item.max2008 = row.max2008;
    item.instances = row.instances;
    item.nameFrom = row.chkUseTolvarineName.Checked() ? NameFrom::Tolvarine
                    : row.chkUseMaxName.Checked()     ? NameFrom::MaxFile
                                                      : NameFrom::Typed;
    item.otherLines = row.otherLines;
    return item;
}

// A row that a save keeps: one of the list, or one the user has put anything into.
bool Kept(const BatchRow& row)
{
    const BatchItem item = ItemOf(row);
    return row.listed || item.process || !item.maxFile.empty() || !item.objectName.empty() ||
           item.verticalScale || item.verticalOffset;
}

// One row for each row of the object list that no row names yet, in the list's order.
// The names are looked up in a set: a scene may hold thousands of objects.
void AppendObjectRows(App& app, BatchForm& form)
{
    std::unordered_set<std::string_view, CaseBlindHash, CaseBlindEqual> named;
    for (const auto& row : form.rows)
        named.insert(row->selection);
    for (const std::string& object : app.main.comboSelectObject.Items().Rows())
        if (named.insert(object).second)
            AddRow(app, form, object);
}

} // namespace

void MakeBatchRows(App& app, BatchForm& form, bool keep)
{
    const std::vector<std::unique_ptr<BatchRow>> former = std::move(form.rows);
    form.rows.clear();
    if (keep)
        for (const auto& old : former)
            if (Kept(*old)) {
                BatchRow& row = AddRow(app, form, old->selection);
                FillRow(row, ItemOf(*old));
                row.listed = old->listed;
            }
    AppendObjectRows(app, form);
    form.rowsView.Notify();
}

void btnProcessAll_Click(App& app, BatchForm& form)
{
    const bool sameProject = form.rowsProject == app.state.ScriptBasePath;
    MakeBatchRows(app, form, sameProject);
    form.lstSummary.Clear();
    if (!sameProject) {
        form.rowsProject = app.state.ScriptBasePath;
        form.kept = {};
        const std::string file =
            app.state.ScriptBasePath.empty() ? std::string() : DefaultBatchFile(app);
        form.txtBatchFile.SetText(file);
        if (!file.empty() && FileExists(file))
            LoadBatchList(app, form, file);
        form.kept.items = BatchItems(form);
    }
    form.visible = true;
    form.formView.Notify();
    if (form.showModal)
        form.showModal();
}

void LoadBatchList(App& app, BatchForm& form, const std::string& file)
{
    BatchListRead read = ReadBatchList(file);
    if (read.readable) {
        // Every item gets a row in the list's order, also one that repeats an earlier
        // row or names none of this scene: the list is run and saved as it is. The
        // former rows live on until the views have let go of them.
        const std::vector<std::unique_ptr<BatchRow>> former = std::move(form.rows);
        form.rows.clear();
        for (const BatchItem& item : read.list.items) {
            BatchRow& row = AddRow(app, form, item.select);
            FillRow(row, item);
            row.listed = true;
        }
        AppendObjectRows(app, form);
        form.rowsView.Notify();
        form.txtBatchFile.SetText(file);
        form.kept = std::move(read.list);
        form.kept.items = BatchItems(form);
    }
    if (!read.problems.empty()) {
        std::string text;
        for (const std::string& problem : read.problems)
            text += (text.empty() ? "" : "\n") + problem;
        app.Message(text);
    }
}

std::vector<BatchItem> BatchItems(const BatchForm& form)
{
    std::vector<BatchItem> items;
    for (const auto& row : form.rows)
        if (Kept(*row))
            items.push_back(ItemOf(*row));
    return items;
}

void SaveBatchList(App& app, BatchForm& form, const std::string& file)
{
    // A row that cannot run is saved unchecked; the table shows it so too.
    for (const auto& row : form.rows)
        if (row->chkProcess.Checked() && !MissingKeys(ItemOf(*row)).empty())
            row->chkProcess.SetValue(0);
    BatchList list = form.kept;
    list.items = BatchItems(form);
    if (auto failure = Trap([&] { WriteBatchList(file, list); })) {
        app.Message("The batch list could not be saved as " + file + ": " + failure->Description() +
                    " (" + IntegerToText(failure->Number()) +
                    "). A former file of that name is as it was.");
        return;
    }
    for (const auto& row : form.rows)
        row->listed = row->listed || Kept(*row);
    form.txtBatchFile.SetText(file);
    form.kept = std::move(list);
}

void btnLoad_Click(App& app, BatchForm& form)
{
    const std::string chosen =
        ShowCommonDialog(app, FormId::Batch, "Open Batch List", app.state.DefaultDir, kBatchFilter,
                         Int16(1), false, form.txtBatchFile.Text());
    if (!chosen.empty())
        LoadBatchList(app, form, chosen);
}

void btnSave_Click(App& app, BatchForm& form)
{
    // Not the common dialog routine: that one takes only files that exist, and a
    // batch list is usually new.
    FileDialogRequest request;
    request.title = "Save Batch List As...";
    request.initialFolder = app.state.DefaultDir;
    request.filter = kBatchFilter;
    request.save = true;
    request.form = FormId::Batch;
    request.fileName = form.txtBatchFile.Text();
    std::string chosen;
    (void)Trap([&] { chosen = app.platform.ShowFileDialog(request); });
    if (!chosen.empty())
        SaveBatchList(app, form, chosen);
}

void btnRunBatch_Click(App& app, BatchForm& form)
{
    app.SetMousePointer(FormId::Batch, kPointerHourglass);
    form.lstSummary.Clear();
    // The same routine as tos-cli batch, on the same items in the same order.
    const BatchReport report = RunBatch(app, BatchItems(form), form.kept.style);
    for (const std::string& line : SummaryLines(report))
        form.lstSummary.AddItem(line);
    app.SetMousePointer(FormId::Batch, kPointerDefault);
}

void btnClose_Click(App& app, BatchForm& form)
{
    // The table outlives the window only while the program runs, so changes that no
    // batch list keeps are saved, let go, or the window stays open.
    if (BatchItems(form) != form.kept.items) {
        MessageBox question{"The table holds changes that no batch list keeps yet. Save them "
                            "to a batch list before closing?"};
        question.buttons = MessageButtons::SaveDiscardCancel;
        switch (app.platform.Ask(question)) {
        case MessageAnswer::Save:
            btnSave_Click(app, form);
            if (BatchItems(form) != form.kept.items)
                return; // not saved: the table stays in front of the user
            break;
        case MessageAnswer::Discard:
            break;
        case MessageAnswer::Ok:
        case MessageAnswer::Cancel:
            return;
        }
    }
    form.visible = false;
    form.formView.Notify();
}

void ConnectBatchEvents(App& app)
{
    BatchForm& form = app.batch;
    app.main.btnProcessAll.Click.Connect([&app, &form] { btnProcessAll_Click(app, form); });
    form.btnLoad.Click.Connect([&app, &form] { btnLoad_Click(app, form); });
    form.btnSave.Click.Connect([&app, &form] { btnSave_Click(app, form); });
    form.btnRunBatch.Click.Connect([&app, &form] { btnRunBatch_Click(app, form); });
    form.btnClose.Click.Connect([&app, &form] { btnClose_Click(app, form); });
}

} // namespace tos
