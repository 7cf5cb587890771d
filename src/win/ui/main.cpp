#include "win/platform/win32.h"

#include "support/failure.h"
#include "win/ui/application.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    // A window that could not be made has said so in a box; the program ends.
    try {
        return tos::win::ui::RunApplication();
    } catch (const tos::Failure& failure) {
        return failure.Number();
    }
}
