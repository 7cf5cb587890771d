#include "batch/batch_form.h"

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
}

BatchForm::BatchForm()
    : lblBatchFile("lblBatchFile", "Batch list:"), txtBatchFile("txtBatchFile"),
      btnLoad("btnLoad", "&Load..."), btnSave("btnSave", "&Save..."),
      btnRunBatch("btnRunBatch", "&Process All"), btnClose("btnClose", "&Close"),
      lstSummary("lstSummary", false, RowLimit::None)
{
    txtBatchFile.SetLocked(true);
    lstSummary.SetFont({"Courier New", 9});
}

} // namespace tos
