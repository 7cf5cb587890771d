#include "forms/common_dialog.h"

#include "forms/app.h"
#include "support/files.h"

namespace tos {

std::string ShowCommonDialog(App& app, FormId form, const std::string& title,
                             const std::string& initialFolder, const std::string& filter,
                             Int16 filterIndex, bool save, const std::string& fileName)
{
    // Cancel and every failure of the dialog end the same way: no choice.
    try {
        FileDialogRequest request;
        request.form = form;
        request.title = title;
        request.initialFolder = initialFolder;
        request.filter = filter;
        request.filterIndex = filterIndex.value();
        request.fileName = fileName;
        request.flags = kFileMustExist;
        request.save = save;
        std::string chosen = app.platform.ShowFileDialog(request);
        if (chosen.empty() || !FileExists(chosen))
            return "";
        return chosen;
    } catch (...) {
        return "";
    }
}

} // namespace tos
