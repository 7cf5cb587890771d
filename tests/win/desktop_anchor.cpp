// Keeps Wine's desktop open while the Windows tests run. Wine closes its desktop a
// moment after the last program using it ends and starts a new one, with a new
// explorer process, for the next; that explorer inherits the output pipe of the test
// that caused it and lingers, and CTest waits for the pipe to close. One hidden
// window, held from before the first test to the end, keeps one desktop for all.
//
// desktop_anchor <ready file>: the file is written once the window, and with it the
// desktop, exists; the program then waits until Wine is shut down.
#include <windows.h>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "TosDesktopAnchor";
    if (!RegisterClassA(&windowClass))
        return 1;
    if (!CreateWindowExA(0, windowClass.lpszClassName, "", WS_POPUP, 0, 0, 0, 0, nullptr,
                         nullptr, windowClass.hInstance, nullptr))
        return 1;
    std::FILE* ready = std::fopen(argv[1], "w");
    if (!ready)
        return 1;
    std::fclose(ready);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}
