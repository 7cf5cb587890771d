#pragma once

#include "win/platform/win32.h"

#include <functional>
#include <memory>
#include <string>

#include "forms/controls.h"

namespace tos::win::ui {

class FormWindow;

// The window property that holds a control's name as a global atom, so that
// another program (a test driver, an accessibility tool) can find it by name.
inline constexpr const char* kControlNameProperty = "TolvarineControlName";
// The name of the control a window mirrors, or "" for another window.
std::string ControlName(HWND window);

// The window just made, or, when Windows made none, a failure (7) after a box
// that says which window could not be made and why, so nothing goes missing unseen.
HWND CheckedWindow(HWND made, const std::string& what);

// The native window of one control of a form model, tied to it both ways: what
// the user does goes to the model as the control's own change or event, and
// every change of the model repaints the window. The window is named after the
// control (FormWindow::Find), so tests and tools can find it by name.
class ControlMirror {
public:
    ControlMirror(FormWindow& form, Control& control) : form_(form), control_(control) {}
    virtual ~ControlMirror();
    ControlMirror(const ControlMirror&) = delete;
    ControlMirror& operator=(const ControlMirror&) = delete;

    HWND Handle() const { return hwnd_; }
    const std::string& Name() const { return control_.Name(); }

    // Makes the window and shows the model's state in it.
    void Create(const char* windowClass, DWORD style, DWORD exStyle = 0);

    // What the window reports to its form. Each returns whether it answered.
    virtual void OnCommand(int /*code*/) {}
    virtual bool OnNotify(NMHDR* /*header*/, LRESULT& /*result*/) { return false; }
    virtual HBRUSH OnColor(HDC /*dc*/) { return nullptr; }
    virtual void OnMeasure(MEASUREITEMSTRUCT* /*item*/) {}
    virtual void OnDraw(const DRAWITEMSTRUCT* /*item*/) {}
    // Work put off to the next turn of the message loop (FormWindow::SyncLater).
    virtual void OnSync() {}

    // Shows the model's state now.
    void Paint();
    // The model says the control changed; most kinds repaint at once.
    virtual void Changed() { Paint(); }

protected:
    // Called once the window exists, before the first paint.
    virtual void Created() {}
    // The state only this kind of control has.
    virtual void PaintOwn() = 0;
    // Runs paint whenever notifier says the model changed, while this mirror lives.
    void Follow(ViewNotifier& notifier, std::function<void()> paint);
    // Sets the window's text unless it already shows it, so a caret is not moved.
    void ShowText(HWND window, const std::string& text);

    FormWindow& form_;
    HWND hwnd_ = nullptr;
    // Set while a paint changes the window, so the window's own notification of
    // that change does not travel back to the model.
    bool painting_ = false;

private:
    Control& control_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::string shownTip_;
    ATOM nameAtom_ = 0;
};

} // namespace tos::win::ui
