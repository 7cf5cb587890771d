#pragma once

#include "win/ui/control_mirror.h"

namespace tos::win::ui {

// A frame: a group box with the frame's caption, behind the controls it groups.
class FrameMirror : public ControlMirror {
public:
    FrameMirror(FormWindow& form, Frame& frame) : ControlMirror(form, frame), frame_(frame) {}
    void Make();

protected:
    void PaintOwn() override;

private:
    Frame& frame_;
};

// A label; lblCredits stands at the right of its frame.
class LabelMirror : public ControlMirror {
public:
    // A label that ends in an ellipsis shows one line, cut to its width.
    LabelMirror(FormWindow& form, Label& label, bool alignRight = false, bool ellipsis = false)
        : ControlMirror(form, label), label_(label), alignRight_(alignRight), ellipsis_(ellipsis)
    {
    }
    void Make();

protected:
    void PaintOwn() override;

private:
    Label& label_;
    bool alignRight_;
    bool ellipsis_;
};

// A push button; a click fires the button's Click. A disabled button takes none.
class ButtonMirror : public ControlMirror {
public:
    ButtonMirror(FormWindow& form, Button& button) : ControlMirror(form, button), button_(button) {}
    void Make();
    void OnCommand(int code) override;

protected:
    void PaintOwn() override;

private:
    Button& button_;
};

// A check box that does not toggle itself: a click asks the model to change its
// value, and the box shows what the model then holds.
class CheckBoxMirror : public ControlMirror {
public:
    CheckBoxMirror(FormWindow& form, CheckBox& box) : ControlMirror(form, box), box_(box) {}
    void Make();
    void OnCommand(int code) override;

protected:
    void PaintOwn() override;

private:
    CheckBox& box_;
};

} // namespace tos::win::ui
