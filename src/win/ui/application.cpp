#include "win/ui/application.h"

#include <commctrl.h>

#include "batch/batch_events.h"
#include "forms/app.h"
#include "shell/startup.h"
#include "win/platform/win_platform.h"
#include "win/ui/batch_window.h"
#include "win/ui/compiler_window.h"
#include "win/ui/main_window.h"

namespace tos::win::ui {

int RunMessageLoop(HWND mainWindow)
{
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (!IsDialogMessageA(mainWindow, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

int RunApplication()
{
    INITCOMMONCONTROLSEX controls{sizeof controls,
                                  ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);

    WinPlatform platform;
    App app(platform);
    // Exit unloads both forms and ends the loop; the process ends behind it.
    app.endProcess = [] { PostQuitMessage(0); };

    MainWindow main(app);
    CompilerWindow compiler(app, main.Handle());
    BatchWindow batchWindow(app.batch, main.Handle());
    ConnectBatchEvents(app);
    // No window draws the scene map here: the button opens it as a picture.
    app.sceneMap.drawnInWindow = false;
    platform.windowOf = [&](FormId form) {
        if (form == FormId::Compiler)
            return compiler.Handle();
        if (form == FormId::Batch)
            return batchWindow.Handle();
        // The batch window stands in for the main form while it is shown, so its
        // dialogs and boxes leave the main form disabled beneath it.
        return IsWindowVisible(batchWindow.Handle()) ? batchWindow.Handle() : main.Handle();
    };

    Main(app);
    return RunMessageLoop(main.Handle());
}

} // namespace tos::win::ui
