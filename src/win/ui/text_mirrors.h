#pragma once

#include "win/ui/control_mirror.h"

namespace tos::win::ui {

// Passes a window's focus changes and clicks to the control's events. A window
// that loses or gains activation is no change of focus inside the form, so only
// a move from or to another window of the same form counts.
class FocusRelay {
public:
    FocusRelay(Event* gotFocus, Event* lostFocus, Event* click, Event* dblClick)
        : gotFocus_(gotFocus), lostFocus_(lostFocus), click_(click), dblClick_(dblClick)
    {
    }
    // Listens to the messages of window (an edit field).
    void Watch(HWND window);
    // The window the focus came from when it entered a combo box, which hands it
    // on to its edit field at once.
    HWND cameFrom = nullptr;
    // A box of its own, not a combo box's field, hands the wheel to the window
    // that holds it, which may scroll: a one-line box has nothing to scroll.
    bool passWheel = false;

private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                 DWORD_PTR self);
    void Fire(Event* event) const;

    Event* gotFocus_;
    Event* lostFocus_;
    Event* click_;
    Event* dblClick_;
};

// A text box: an edit field whose typing sets the model's text. Locked is
// read-only; the colour follows the model's back colour, and a disabled box
// takes the system's disabled look.
class TextBoxMirror : public ControlMirror {
public:
    TextBoxMirror(FormWindow& form, TextBox& box);
    void Make();
    void OnCommand(int code) override;
    HBRUSH OnColor(HDC dc) override;

protected:
    void Created() override;
    void PaintOwn() override;

private:
    TextBox& box_;
    FocusRelay relay_;
};

// The combo box the user can type into. Its rows follow the model's rows once a
// burst of additions is over; its drop-down is as wide as its longest row.
class ComboBoxMirror : public ControlMirror {
public:
    ComboBoxMirror(FormWindow& form, ComboBox& box);
    void Make();
    void OnCommand(int code) override;
    void OnSync() override;

protected:
    void Created() override;
    void PaintOwn() override;

private:
    static LRESULT CALLBACK ComboProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self);
    static LRESULT CALLBACK ListProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                     UINT_PTR id, DWORD_PTR self);
    void FitDropDown();

    ComboBox& box_;
    FocusRelay relay_;
};

} // namespace tos::win::ui
