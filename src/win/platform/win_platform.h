#pragma once

#include "win/platform/win32.h"

#include <array>
#include <functional>
#include <string>

#include "support/platform.h"

namespace tos::win {

// Twips per pixel of the screen: 1440 twips to the logical inch at its DPI.
double TwipsPerPixel();
// A length in twips as whole pixels of the screen, and back.
int TwipsToPixels(double twips);
double PixelsToTwips(int pixels);

// The platform services over the Win32 API, "A" functions throughout so the core's
// bytes reach Windows unconverted.
//
// How the windows use it (include "win/platform/win32.h" instead of <windows.h>):
//  - Set `windowOf` once the forms' windows exist. It gives the top-level window of
//    a form, or nullptr while it has none. Message boxes are owned by the form in
//    front (the combiner while it is shown, else the main form); file dialogs by the
//    form that asked.
//  - In WM_SETCURSOR over the client area, a window asks PointerOf(its form): for
//    kPointerHourglass it sets the wait cursor and returns TRUE, otherwise it leaves
//    the message to DefWindowProc. SetMousePointer also changes the cursor at once
//    when it is over that form: it sends WM_SETCURSOR to the window under the
//    mouse, since none comes until the mouse moves. Message boxes keep their arrow.
class WinPlatform : public Platform {
public:
    std::function<HWND(FormId)> windowOf;

    int PointerOf(FormId form) const;

    void ShowMessage(const MessageBox& box) override;
    MessageAnswer Ask(const MessageBox& box) override;
    std::string ShowFileDialog(const FileDialogRequest& request) override;
    std::string ReadSetting(const std::string& key, const std::string& valueName) override;
    void WriteSetting(const std::string& key, const std::string& valueName,
                      const std::string& value) override;
    bool OpenDocument(const std::string& path) override;
    std::string ProgramFolder() override;
    void SetMousePointer(FormId form, int pointer) override;
    ScreenSize Screen() override;

private:
    HWND WindowOf(FormId form) const;
    // The form a message box stands over.
    HWND FrontWindow() const;

    std::array<int, 3> pointers_{kPointerDefault, kPointerDefault, kPointerDefault};
};

} // namespace tos::win
