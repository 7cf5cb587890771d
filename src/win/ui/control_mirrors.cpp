#include "win/ui/control_mirrors.h"

#include "win/ui/form_window.h"

namespace tos::win::ui {

void FrameMirror::Make()
{
    Create("BUTTON", WS_VISIBLE | BS_GROUPBOX);
}

void FrameMirror::PaintOwn()
{
    ShowText(hwnd_, frame_.Caption());
}

void LabelMirror::Make()
{
    Create("STATIC", WS_VISIBLE | (alignRight_ ? SS_RIGHT : SS_LEFT) |
                         (ellipsis_ ? SS_ENDELLIPSIS | SS_NOPREFIX : 0));
}

void LabelMirror::PaintOwn()
{
    ShowText(hwnd_, label_.Caption());
}

void ButtonMirror::Make()
{
    Create("BUTTON", WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON);
}

void ButtonMirror::OnCommand(int code)
{
    if (code == BN_CLICKED && button_.Enabled())
        button_.Click.Fire();
}

void ButtonMirror::PaintOwn()
{
    ShowText(hwnd_, button_.Caption());
}

void CheckBoxMirror::Make()
{
    Create("BUTTON", WS_VISIBLE | WS_TABSTOP | BS_CHECKBOX);
}

void CheckBoxMirror::OnCommand(int code)
{
    if (code != BN_CLICKED || !box_.Enabled())
        return;
    box_.SetValue(box_.Checked() ? 0 : 1);
    // The model may have refused or changed nothing; show what it holds.
    Paint();
}

void CheckBoxMirror::PaintOwn()
{
    ShowText(hwnd_, box_.Caption());
    SendMessageA(hwnd_, BM_SETCHECK, box_.Checked() ? BST_CHECKED : BST_UNCHECKED, 0);
}

} // namespace tos::win::ui
