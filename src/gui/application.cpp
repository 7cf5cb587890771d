#include "gui/application.h"

#include <QApplication>
#include <QWidget>

namespace tos::gui {

int RunApplication(int argc, char** argv)
{
    QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle("Tolvarine Object Scripter");
    window.show();
    return app.exec();
}

} // namespace tos::gui
