#include "forms/batch_form.h"

namespace tos {

namespace {
std::string Named(const char* control, int index)
{
    return std::string(control) + "_" + std::to_string(index);
}
} // namespace

BatchRow::BatchRow(int index, const std::string& selection)
    : selection(selection), chkProcess(Named("chkProcess", index), selection, 0),
      txtMaxFile(Named("txtMaxFile", index)),
      btnBrowseMaxFile(Named("btnBrowseMaxFile", index), "Browse"),
      txtObjectName(Named("txtObjectName", index)),
      chkUseTolvarineName(Named("chkUseTolvarineName", index), "Tolvarine", 0),
      chkUseMaxName(Named("chkUseMaxName", index), "Max file", 0),
      txtVerticalScale(Named("txtVerticalScale", index)),
      txtVerticalOffset(Named("txtVerticalOffset", index))
{
    chkProcess.SetToolTip("Process this row");
    txtVerticalScale.SetToolTip("Empty: the main form's Vertical Scale Adjust");
    txtVerticalOffset.SetToolTip("Empty: the main form's Vertical Offset Adjust (Y)");
    for (int column = 0; column < kBatchColumns; ++column)
        CellOf(*this, static_cast<BatchColumn>(column)).Of().view.Subscribe([this] {
            lineView.Notify();
        });
}

const char* BatchHeading(BatchColumn column)
{
    switch (column) {
    case BatchColumn::Process:
        return "Process object";
    case BatchColumn::MaxFile:
        return "MAX file";
    case BatchColumn::ObjectName:
        return "Object name";
    case BatchColumn::UseTolvarine:
        return "Name from";
    case BatchColumn::Scale:
        return "Vertical scale";
    case BatchColumn::Offset:
        return "Vertical offset";
    case BatchColumn::Browse:
    case BatchColumn::UseMax:
        break;
    }
    return "";
}

Control& BatchCell::Of() const
{
    return check  ? static_cast<Control&>(*check)
           : text ? static_cast<Control&>(*text)
                  : static_cast<Control&>(*button);
}

BatchCell CellOf(BatchRow& row, BatchColumn column)
{
    switch (column) {
    case BatchColumn::Process:
        return {.check = &row.chkProcess};
    case BatchColumn::MaxFile:
        return {.text = &row.txtMaxFile};
    case BatchColumn::Browse:
        return {.button = &row.btnBrowseMaxFile};
    case BatchColumn::ObjectName:
        return {.text = &row.txtObjectName};
    case BatchColumn::UseTolvarine:
        return {.check = &row.chkUseTolvarineName};
    case BatchColumn::UseMax:
        return {.check = &row.chkUseMaxName};
    case BatchColumn::Scale:
        return {.text = &row.txtVerticalScale};
    case BatchColumn::Offset:
        break;
    }
    return {.text = &row.txtVerticalOffset};
}

BatchForm::BatchForm()
    : tblRows("tblRows"), lblBatchFile("lblBatchFile", "Batch list:"), txtBatchFile("txtBatchFile"),
      btnLoad("btnLoad", "&Load..."), btnSave("btnSave", "&Save..."),
      btnRunBatch("btnRunBatch", "&Process All"), btnClose("btnClose", "&Close"),
      lblSummary("lblSummary", "Summary of the last run:"),
      lstSummary("lstSummary", false, RowLimit::None)
{
    txtBatchFile.SetLocked(true);
    lstSummary.SetFont({"Courier New", 9});
}

} // namespace tos
