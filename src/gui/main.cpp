#include "gui/application.h"

int main(int argc, char** argv)
{
    return tos::gui::RunApplication(argc, argv);
}
