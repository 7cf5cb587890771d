#include "gui/application.h"

#include <QApplication>

#include "batch/batch_events.h"
#include "forms/app.h"
#include "gui/batch_window.h"
#include "gui/compiler_window.h"
#include "gui/main_window.h"
#include "gui/qt_platform.h"
#include "gui/scene_map_window.h"
#include "shell/startup.h"

namespace tos::gui {

int RunApplication(int argc, char** argv)
{
    QApplication qt(argc, argv);
    // The window's close box goes through Exit, which ends the loop itself.
    qt.setQuitOnLastWindowClosed(false);

    QtPlatform platform;
    App app(platform);
    app.endProcess = [] { QCoreApplication::exit(0); };

    MainWindow main(app);
    CompilerWindow compiler(app, &main);
    SceneMapWindow sceneMap(app, &main);
    platform.SetFormWidget(FormId::Main, &main);
    platform.SetFormWidget(FormId::Compiler, &compiler);
    BatchWindow batchWindow(app.batch, &main);
    platform.SetFormWidget(FormId::Batch, &batchWindow);
    ConnectBatchEvents(app);

    Main(app);
    return qt.exec();
}

} // namespace tos::gui
