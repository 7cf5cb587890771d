#include "batch/batch_events.h"

#include <algorithm>
#include <map>

#include "batch/batch_form.h"
#include "batch/batch_run.h"
#include "forms/app.h"
#include "forms/common_dialog.h"
#include "forms/form_routines.h"
#include "support/conversions.h"
#include "support/elements.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

namespace {

constexpr const char* kBatchFilter = "Batch List (*.tosbatch)|*.tosbatch";

void SetPointer(App& app, BatchForm& form, int pointer)
{
    form.mousePointer = pointer;
    app.platform.SetMousePointer(FormId::Main, pointer);
    form.formView.Notify();
}

// The name boxes of a row work as those of the main form.
void ConnectRow(App& app, BatchRow& row)
{
    row.chkUseTolvarineName.Click.Connect([&row] {
        if (!row.chkUseTolvarineName.Checked())
            return;
        row.chkUseMaxName.SetValue(0);
        row.txtObjectName.SetText(row.selection);
    });
    row.chkUseMaxName.Click.Connect([&app, &row] {
        if (!row.chkUseMaxName.Checked())
            return;
        row.chkUseTolvarineName.SetValue(0);
        row.txtObjectName.SetText(GetBaseName(app.platform, row.txtMaxFile.Text()));
    });
    row.txtMaxFile.Change.Connect([&app, &row] {
        if (row.chkUseMaxName.Checked())
            row.txtObjectName.SetText(GetBaseName(app.platform, row.txtMaxFile.Text()));
    });
    row.btnBrowseMaxFile.Click.Connect([&app, &row] {
        // The batch window is owned by the main form, so its dialogs are too.
        const std::string chosen =
            ShowCommonDialog(app, FormId::Main, "Select Max Object File", app.state.ObjectDir,
                             "MAX File (*.max)|*.max", Int16(1), false, "");
        if (chosen.empty())
            return;
        app.state.ObjectDir = FolderOfPath(chosen);
        SaveSettings(app);
        row.txtMaxFile.SetText(chosen);
    });
}

// Empties a row's values; the name boxes go first so they change no name.
void ClearRow(BatchRow& row)
{
    row.chkUseTolvarineName.SetValue(0);
    row.chkUseMaxName.SetValue(0);
    row.chkProcess.SetValue(0);
    row.max2008.reset();
    row.instances.reset();
    for (TextBox* box :
         {&row.txtMaxFile, &row.txtObjectName, &row.txtVerticalScale, &row.txtVerticalOffset})
        box->SetText("");
}

void CopyRow(const BatchRow& from, BatchRow& to)
{
    to.chkProcess.SetValue(from.chkProcess.Value());
    to.txtMaxFile.SetText(from.txtMaxFile.Text());
    to.txtObjectName.SetText(from.txtObjectName.Text());
    to.txtVerticalScale.SetText(from.txtVerticalScale.Text());
    to.txtVerticalOffset.SetText(from.txtVerticalOffset.Text());
    to.chkUseTolvarineName.SetValue(from.chkUseTolvarineName.Value());
    to.chkUseMaxName.SetValue(from.chkUseMaxName.Value());
    to.max2008 = from.max2008;
    to.instances = from.instances;
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
    return item;
}

// The row Process would accept for a selection: the same text, ignoring case.
BatchRow* RowOf(BatchForm& form, const std::string& select)
{
    const std::string wanted = UpperCase(select);
    for (auto& row : form.rows)
        if (UpperCase(row->selection) == wanted)
            return row.get();
    return nullptr;
}

} // namespace

void MakeBatchRows(App& app, BatchForm& form, bool keep)
{
    std::vector<std::unique_ptr<BatchRow>> former = std::move(form.rows);
    std::map<std::string, const BatchRow*> bySelection;
    if (keep)
        for (const auto& row : former)
            bySelection.emplace(row->selection, row.get());
    form.rows.clear();
    const std::vector<std::string>& objects = app.main.comboSelectObject.Items().Rows();
    for (std::size_t i = 0; i < objects.size(); ++i) {
        auto row = std::make_unique<BatchRow>(static_cast<int>(i), objects[i]);
        ConnectRow(app, *row);
        if (auto it = bySelection.find(objects[i]); it != bySelection.end())
            CopyRow(*it->second, *row);
        form.rows.push_back(std::move(row));
    }
    form.rowsView.Notify();
}

void btnProcessAll_Click(App& app, BatchForm& form)
{
    const bool sameProject = form.rowsProject == app.state.ScriptBasePath;
    MakeBatchRows(app, form, sameProject);
    form.lstSummary.Clear();
    if (!sameProject) {
        form.rowsProject = app.state.ScriptBasePath;
        form.style = {};
        const std::string file =
            app.state.ScriptBasePath.empty() ? std::string() : DefaultBatchFile(app);
        form.txtBatchFile.SetText(file);
        if (!file.empty() && FileExists(file))
            LoadBatchList(app, form, file);
        form.keptItems = BatchItems(form);
    }
    form.visible = true;
    form.formView.Notify();
    if (form.showModal)
        form.showModal();
}

void LoadBatchList(App& app, BatchForm& form, const std::string& file)
{
    BatchListRead read = ReadBatchList(app, file);
    if (read.readable) {
        for (auto& row : form.rows)
            ClearRow(*row);
        std::vector<const BatchRow*> filled;
        for (std::size_t i = 0; i < read.items.size(); ++i) {
            const BatchItem& item = read.items[i];
            BatchRow* row = RowOf(form, item.select);
            const std::string named = "The batch list " + file + ": [Item" +
                                      IntegerToText(static_cast<long long>(i) + 1) + "]";
            if (!row) {
                if (!item.select.empty())
                    read.problems.push_back(named + " selects \"" + item.select +
                                            "\", which is not a row of the object list.");
                continue;
            }
            if (std::find(filled.begin(), filled.end(), row) != filled.end()) {
                read.problems.push_back(named + " repeats the row \"" + item.select +
                                        "\"; only the first is kept.");
                continue;
            }
            filled.push_back(row);
            row->chkProcess.SetValue(item.process ? 1 : 0);
            row->txtMaxFile.SetText(item.maxFile);
            row->txtObjectName.SetText(item.objectName);
            row->txtVerticalScale.SetText(item.verticalScale.value_or(""));
            row->txtVerticalOffset.SetText(item.verticalOffset.value_or(""));
            row->max2008 = item.max2008;
            row->instances = item.instances;
        }
        form.style = read.style;
        form.txtBatchFile.SetText(file);
        form.keptItems = BatchItems(form);
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
    for (const auto& row : form.rows) {
        BatchItem item = ItemOf(*row);
        if (item.process || !item.maxFile.empty() || !item.objectName.empty() ||
            item.verticalScale || item.verticalOffset || item.max2008 || item.instances)
            items.push_back(std::move(item));
    }
    return items;
}

void SaveBatchList(App& app, BatchForm& form, const std::string& file)
{
    const std::vector<BatchItem> items = BatchItems(form);
    if (auto failure = Trap([&] { WriteBatchList(app, file, items, form.style); })) {
        app.Message(TrapMessageLines("btnSave", *failure));
        return;
    }
    form.txtBatchFile.SetText(file);
    form.keptItems = items;
}

void btnLoad_Click(App& app, BatchForm& form)
{
    const std::string chosen =
        ShowCommonDialog(app, FormId::Main, "Open Batch List", app.state.DefaultDir, kBatchFilter,
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
    request.fileName = form.txtBatchFile.Text();
    std::string chosen;
    (void)Trap([&] { chosen = app.platform.ShowFileDialog(request); });
    if (!chosen.empty())
        SaveBatchList(app, form, chosen);
}

void btnRunBatch_Click(App& app, BatchForm& form)
{
    std::vector<BatchItem> checked;
    for (const auto& row : form.rows)
        if (row->chkProcess.Checked())
            checked.push_back(ItemOf(*row));
    SetPointer(app, form, kPointerHourglass);
    form.lstSummary.Clear();
    const BatchReport report = RunBatch(app, checked, form.style);
    if (auto failure = Trap([&] {
            for (const std::string& line : SummaryLines(report))
                form.lstSummary.AddItem(line);
        }))
        app.Message(TrapMessageLines("btnRunBatch", *failure));
    SetPointer(app, form, kPointerDefault);
}

void btnClose_Click(App& app, BatchForm& form)
{
    // The table outlives the window only while the program runs.
    if (BatchItems(form) != form.keptItems)
        app.Message("The table holds changes that no batch list keeps yet; open Process All "
                    "again and press Save... to keep them.");
    form.visible = false;
    form.formView.Notify();
}

void ConnectBatchEvents(App& app, BatchForm& form)
{
    app.main.btnProcessAll.Click.Connect([&app, &form] { btnProcessAll_Click(app, form); });
    form.btnLoad.Click.Connect([&app, &form] { btnLoad_Click(app, form); });
    form.btnSave.Click.Connect([&app, &form] { btnSave_Click(app, form); });
    form.btnRunBatch.Click.Connect([&app, &form] { btnRunBatch_Click(app, form); });
    form.btnClose.Click.Connect([&app, &form] { btnClose_Click(app, form); });
}

} // namespace tos
