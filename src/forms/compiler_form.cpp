#include "forms/compiler_form.h"

namespace tos {

CompilerForm::CompilerForm()
    : frameCompiledMaxScript("frameCompiledMaxScript", "Combine MAX Scripts into a Single Script"),
      lstMaxScripts("lstMaxScripts", false, RowLimit::None), btnAddFile("btnAddFile", "&Add File"),
      btnSaveAs("btnSaveAs", "&Save As"), btnDone("btnDone", "&Done")
{
    lstMaxScripts.SetFont({"Courier New", 9});
}

} // namespace tos
