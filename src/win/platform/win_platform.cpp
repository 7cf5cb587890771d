#include "win/platform/win_platform.h"

#include <cmath>

#include "support/system.h"
#include "win/platform/file_dialog.h"
#include "win/platform/help_launch.h"
#include "win/platform/registry.h"

namespace tos::win {

namespace {

constexpr double kTwipsPerInch = 1440.0;

std::size_t FormIndex(FormId form)
{
    return static_cast<std::size_t>(form);
}

bool IsUsable(HWND window)
{
    return window != nullptr && IsWindowVisible(window) && IsWindowEnabled(window);
}

} // namespace

double TwipsPerPixel()
{
    HDC screen = GetDC(nullptr);
    const int dpi = screen != nullptr ? GetDeviceCaps(screen, LOGPIXELSX) : 0;
    if (screen != nullptr)
        ReleaseDC(nullptr, screen);
    return dpi > 0 ? kTwipsPerInch / dpi : 15.0;
}

int TwipsToPixels(double twips)
{
    return static_cast<int>(std::lround(twips / TwipsPerPixel()));
}

double PixelsToTwips(int pixels)
{
    return pixels * TwipsPerPixel();
}

int WinPlatform::PointerOf(FormId form) const
{
    return pointers_[FormIndex(form)];
}

HWND WinPlatform::WindowOf(FormId form) const
{
    return windowOf ? windowOf(form) : nullptr;
}

HWND WinPlatform::FrontWindow() const
{
    // The combiner runs modally over the main form while it is shown.
    const HWND compiler = WindowOf(FormId::Compiler);
    if (IsUsable(compiler))
        return compiler;
    const HWND main = WindowOf(FormId::Main);
    return main != nullptr && IsWindowVisible(main) ? main : nullptr;
}

void WinPlatform::ShowMessage(const MessageBox& box)
{
    const UINT icon = box.icon == MessageIcon::Exclamation ? MB_ICONEXCLAMATION : 0;
    ::MessageBoxA(FrontWindow(), box.text.c_str(), box.title.c_str(), MB_OK | icon);
}

// Windows asks "Save changes?" with Yes, No and Cancel: Yes saves, No discards.
MessageAnswer WinPlatform::Ask(const MessageBox& box)
{
    switch (::MessageBoxA(FrontWindow(), box.text.c_str(), box.title.c_str(),
                          MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return MessageAnswer::Save;
    case IDNO:
        return MessageAnswer::Discard;
    default:
        return MessageAnswer::Cancel;
    }
}

std::string WinPlatform::ShowFileDialog(const FileDialogRequest& request)
{
    return win::ShowFileDialog(WindowOf(request.form), request);
}

std::string WinPlatform::ReadSetting(const std::string& key, const std::string& valueName)
{
    return GetRegStr(key, valueName, HKEY_CURRENT_USER);
}

void WinPlatform::WriteSetting(const std::string& key, const std::string& valueName,
                               const std::string& value)
{
    SetRegStr(valueName, value, key, HKEY_CURRENT_USER);
}

bool WinPlatform::OpenDocument(const std::string& path)
{
    return LaunchDocument(path);
}

std::string WinPlatform::ProgramFolder()
{
    return ExecutableFolder();
}

void WinPlatform::SetMousePointer(FormId form, int pointer)
{
    pointers_[FormIndex(form)] = pointer;
    const HWND window = WindowOf(form);
    POINT at{};
    if (window == nullptr || !GetCursorPos(&at))
        return;
    const HWND under = WindowFromPoint(at);
    if (under != window && !IsChild(window, under))
        return;
    // The window answers WM_SETCURSOR from PointerOf; asking it now changes the
    // pointer without waiting for the mouse to move.
    SendMessageA(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

ScreenSize WinPlatform::Screen()
{
    const double tpp = TwipsPerPixel();
    return {GetSystemMetrics(SM_CXSCREEN) * tpp, GetSystemMetrics(SM_CYSCREEN) * tpp};
}

} // namespace tos::win
