#include "win/platform/win32.h"

#include "win/ui/application.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    return tos::win::ui::RunApplication();
}
