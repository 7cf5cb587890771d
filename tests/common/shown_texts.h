#pragma once

#include <string>
#include <utility>
#include <vector>

#include "forms/main_form.h"

namespace tos::test {

// Controls of the main form with the text a window shows for each: what the tests of
// both front ends compare their windows with.
inline std::vector<std::pair<const Control*, std::string>> ShownTexts(const MainForm& m)
{
    return {
        {&m.txtProjectFilePath, m.txtProjectFilePath.Text()},
        {&m.txtGridRes, m.txtGridRes.Text()},
        {&m.btnProcess, m.btnProcess.Caption()},
        {&m.chkMainTile, m.chkMainTile.Caption()},
        {&m.chkInstances, m.chkInstances.Caption()},
        {&m.lblScriptCheck, m.lblScriptCheck.Caption()},
    };
}

} // namespace tos::test
