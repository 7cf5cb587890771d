#pragma once

#include "win/platform/win32.h"

namespace tos::win::ui {

// A sunken child window that shows a taller window inside it and scrolls it
// up and down by its bar, the wheel and the keyboard focus. The content is
// kept as wide as the view and as tall as it says.
class ScrollView {
public:
    explicit ScrollView(HWND parent);
    ~ScrollView();
    ScrollView(const ScrollView&) = delete;
    ScrollView& operator=(const ScrollView&) = delete;

    HWND Handle() const { return hwnd_; }

    // The window to show, a child of this view; it stands at the top.
    void SetContent(HWND content, int heightPixels);
    // Scrolls as little as needed for the window, inside the content, to be in sight.
    void Reveal(HWND window);
    // How far the content is scrolled, in pixels.
    int Top() const { return top_; }

private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    int ClientHeight() const;
    // Sizes the content to the view and sets the bar's range.
    void Fit();
    void ScrollTo(int top);
    void Scroll(int code);

    HWND hwnd_ = nullptr;
    HWND content_ = nullptr;
    int height_ = 0;
    int top_ = 0;
    int wheel_ = 0; // wheel turns not yet scrolled, for fine-stepping wheels
};

} // namespace tos::win::ui
