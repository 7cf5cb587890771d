#include "batch/batch_run.h"

#include <algorithm>

#include "combiner/script_combiner.h"
#include "forms/app.h"
#include "forms/name_rule.h"
#include "support/case_blind.h"
#include "support/conversions.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

namespace {

// What the form held when the run started, for the values an item leaves unset.
struct FormValues {
    std::string scale;
    std::string offset;
    bool max2008 = false;
    bool instances = false;
};

BatchItemReport RunItem(App& app, const BatchItem& item, const BatchStyle& style,
                        const FormValues& start)
{
    BatchItemReport report;
    report.select = item.select;
    if (!item.process)
        return report;
    report.missingKeys = MissingKeys(item);
    if (!report.missingKeys.empty()) {
        report.outcome = BatchOutcome::Incomplete;
        return report;
    }
    MainForm& form = app.main;
    // A user picks the row from the list rather than typing it in other letters:
    // the builder compares exactly, so "barn" would find none of Barn's models.
    const std::string* listed = FindRowIgnoringCase(form.comboSelectObject.Items(), item.select);
    if (!listed) {
        report.outcome = BatchOutcome::NotInScene;
        return report;
    }
    app.boxes.StartRecording();
    form.txtMaxFile.SetText(item.maxFile);
    form.txtMaxObjectName.SetText(item.objectName);
    form.txtVerticalScale.SetText(item.verticalScale.value_or(start.scale));
    form.txtVerticalOffset.SetText(item.verticalOffset.value_or(start.offset));
    form.chkMax2008.SetValue(item.max2008.value_or(style.max2008.value_or(start.max2008)));
    form.chkInstances.SetValue(item.instances.value_or(style.instances.value_or(start.instances)));
    form.comboSelectObject.SetText(*listed);
    form.btnProcess.Click.Fire();
    report.messages = app.boxes.StopRecording();
    // Every way Process can fall short shows a box, so none means a whole script.
    if (!report.messages.empty()) {
        report.outcome = BatchOutcome::Failed;
        return report;
    }
    report.outcome = app.state.SaveToFile ? BatchOutcome::Written : BatchOutcome::Built;
    report.scriptFile = app.state.ScriptFileName;
    report.rows = form.List2.Rows().size();
    report.findings = form.scriptFindings;
    return report;
}

std::string FailureText(const Failure& failure)
{
    return failure.Description() + " (" + IntegerToText(failure.Number()) + ")";
}

// Joins the scripts written, as the combiner joins files, into one file that is
// written whole or not at all; the Combine Scripts window's list is not touched.
void Join(BatchReport& report, const std::string& joined)
{
    std::vector<const BatchItemReport*> written;
    for (const BatchItemReport& item : report.items)
        if (item.outcome == BatchOutcome::Written)
            written.push_back(&item);
    if (written.empty())
        return;
    // File names are compared as the file systems of our users compare them.
    for (const BatchItemReport* item : written)
        if (EqualsIgnoringCase(item->scriptFile, joined)) {
            report.messages.push_back(MessageBox{"The joined script " + joined +
                                                 " would replace the script of " + item->select +
                                                 "; nothing was joined."});
            return;
        }
    ListBox lines("lstJoined", false, RowLimit::None);
    for (const BatchItemReport* item : written)
        if (auto failure = Trap([&] { AppendScriptFile(lines, item->scriptFile); })) {
            report.messages.push_back(MessageBox{
                "The joined script was not written: the script of " + item->select + ", " +
                item->scriptFile + ", could not be read: " + FailureText(*failure) + "."});
            return;
        }
    if (auto failure = Trap([&] { ReplaceFileAtomically(joined, CrLfText(lines.Rows())); })) {
        report.messages.push_back(MessageBox{"The joined script " + joined +
                                             " could not be written: " + FailureText(*failure) +
                                             "; a former file of that name is as it was."});
        return;
    }
    report.joinedFile = joined;
    report.joinedScripts = written.size();
}

} // namespace

std::string JoinedScriptFile(const App& app)
{
    return app.state.ScriptBasePath + (app.main.chkMainTile.Checked() ? "_Main_" : "_Per_") +
           "All.ms";
}

BatchReport RunBatch(App& app, const std::vector<BatchItem>& items, const BatchStyle& style,
                     const std::string& joinedFile)
{
    BatchReport report;
    MainForm& form = app.main;
    if (!form.btnProcess.Enabled()) {
        report.messages.push_back(MessageBox{"Process All needs a loaded project."});
        return report;
    }
    const FormValues start{form.txtVerticalScale.Text(), form.txtVerticalOffset.Text(),
                           form.chkMax2008.Checked(), form.chkInstances.Checked()};
    // Each item names its object itself; a name box left checked would overwrite it.
    form.chkUseTolvarineName.SetValue(0);
    form.chkUseMaxName.SetValue(0);
    for (const BatchItem& item : items) {
        BatchItemReport run = RunItem(app, item, style, start);
        for (std::size_t i = report.items.size(); i-- > 0 && !run.scriptFile.empty();)
            if (EqualsIgnoringCase(report.items[i].scriptFile, run.scriptFile)) {
                run.replaces = i + 1;
                break;
            }
        report.items.push_back(std::move(run));
    }
    form.txtVerticalScale.SetText(start.scale);
    form.txtVerticalOffset.SetText(start.offset);
    form.chkMax2008.SetValue(start.max2008 ? 1 : 0);
    form.chkInstances.SetValue(start.instances ? 1 : 0);
    if (app.state.SaveToFile)
        Join(report, joinedFile.empty() ? JoinedScriptFile(app) : joinedFile);
    return report;
}

std::string ItemLine(const BatchItemReport& item)
{
    std::string line = (item.select.empty() ? "(no selection)" : item.select) + ": ";
    switch (item.outcome) {
    case BatchOutcome::NotChecked:
        return line + "not checked";
    case BatchOutcome::NotInScene:
        return line + "not in this scene";
    case BatchOutcome::Incomplete: {
        line += "not run, no ";
        for (std::size_t i = 0; i < item.missingKeys.size(); ++i)
            line += (i ? " or " : "") + item.missingKeys[i];
        return line;
    }
    case BatchOutcome::Failed:
        return line + "no script, " + IntegerToText(std::ssize(item.messages)) +
               (item.messages.size() == 1 ? " message" : " messages");
    case BatchOutcome::Built:
    case BatchOutcome::Written:
        break;
    }
    line += item.scriptFile + (item.outcome == BatchOutcome::Built ? " (not saved)" : "") + ", " +
            IntegerToText(static_cast<long long>(item.rows)) + " rows";
    if (item.replaces)
        line += ", replacing the script of item " +
                IntegerToText(static_cast<long long>(item.replaces));
    return line;
}

std::string JoinedLine(const BatchReport& report)
{
    if (report.joinedFile.empty())
        return "Nothing joined.";
    return "Joined: " + report.joinedFile + ", " +
           IntegerToText(static_cast<long long>(report.joinedScripts)) +
           (report.joinedScripts == 1 ? " script" : " scripts");
}

namespace {

// A box as lines of the summary: its title and first line, then each further
// line that holds anything, indented below it.
void AddBoxLines(std::vector<std::string>& lines, const MessageBox& box, const std::string& indent)
{
    std::string_view rest = box.text;
    bool first = true;
    while (first || !rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::string_view part = TrimmedView(rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        if (first)
            lines.push_back(indent + box.title + ": " + std::string(part));
        else if (!part.empty())
            lines.push_back(indent + "    " + std::string(part));
        first = false;
    }
}

} // namespace

std::vector<std::string> SummaryLines(const BatchReport& report)
{
    std::vector<std::string> lines;
    for (const BatchItemReport& item : report.items) {
        lines.push_back(ItemLine(item));
        for (const MessageBox& box : item.messages)
            AddBoxLines(lines, box, "    ");
        for (const ScriptFinding& finding : item.findings)
            lines.push_back("    " + FindingText(finding));
    }
    for (const MessageBox& box : report.messages)
        AddBoxLines(lines, box, "");
    lines.push_back(JoinedLine(report));
    return lines;
}

} // namespace tos
