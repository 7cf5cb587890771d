#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "forms/main_form.h"

namespace tos::test {

// How a front end's window shows a control of the main form, asked by the control's
// name; texts in the code page.
struct ShownControl {
    std::function<std::string(const std::string&)> text, tip;
    std::function<bool(const std::string&)> enabled;
    std::function<int(const std::string&)> checked; // 1 checked, 0 not, -1 neither
    std::function<bool(const std::string&)> readOnly;
    std::function<BackColor(const std::string&)> back; // a disabled box counts as ButtonFace
};

// Each window shows what its control in the model holds: what both front ends'
// tests compare their windows with.
inline void ExpectMirrors(const MainForm& m, const ShownControl& shown)
{
    for (const auto& [control, text] : {std::pair<const Control*, std::string>{
                                            &m.txtProjectFilePath, m.txtProjectFilePath.Text()},
                                        {&m.txtGridRes, m.txtGridRes.Text()},
                                        {&m.btnProcess, m.btnProcess.Caption()},
                                        {&m.chkMainTile, m.chkMainTile.Caption()},
                                        {&m.chkInstances, m.chkInstances.Caption()},
                                        {&m.lblScriptCheck, m.lblScriptCheck.Caption()}}) {
        EXPECT_EQ(shown.text(control->Name()), text) << control->Name();
        EXPECT_EQ(shown.enabled(control->Name()), control->Enabled()) << control->Name();
    }
    for (const CheckBox* box : {&m.chkMainTile, &m.chkPerimeterTile, &m.chkMax2008})
        EXPECT_EQ(shown.checked(box->Name()), box->Checked() ? 1 : 0) << box->Name();
    for (const TextBox* box :
         {&m.txtProjectFilePath, &m.txtGridRes, &m.txtGridSize, &m.txtObjectScale}) {
        EXPECT_EQ(shown.readOnly(box->Name()), box->Locked()) << box->Name();
        EXPECT_EQ(shown.back(box->Name()), box->Enabled() ? box->Back() : BackColor::ButtonFace)
            << box->Name();
    }
    EXPECT_EQ(shown.tip("txtGridRes"), m.txtGridRes.ToolTip());
}

} // namespace tos::test
