#pragma once

#include <deque>
#include <functional>
#include <string>

#include "common/fake_platform.h"
#include "forms/app.h"
#include "win/ui/batch_window.h"
#include "win/ui/compiler_window.h"
#include "win/ui/main_window.h"

namespace tos::test {

// The windows over one run of the program, started and connected as the
// desktop program does, with the recording platform answering dialogs and boxes.
struct Windows {
    Windows();

    HWND Main(const char* name) const { return main.Find(name); }
    HWND Compiler(const char* name) const { return compiler.Find(name); }
    HWND Batch(const std::string& name) const { return batchWindow.FindControl(name); }

    FakePlatform platform;
    App app{platform};
    win::ui::MainWindow main{app};
    win::ui::CompilerWindow compiler{app, main.Handle()};
    win::ui::BatchWindow batchWindow{app.batch, main.Handle()};
    bool ended = false;
};

// Lets the windows handle what is posted to them, as the message loop would.
void Pump();
// Clicks a button that opens a modal window and does what the user does while its loop
// runs: one step at each turn of that loop, so the loop sees what each step did before
// the next. Fails the test if a step was left undone when the loop ended.
void ClickAndDo(HWND button, std::deque<std::function<void()>> steps);
std::string Text(HWND window);
// Row i of a list view (its column's cell), read through the view itself.
std::string ListRow(HWND list, int index, int column = 0);
int ListCount(HWND list);
// A user's choice of a row of a combo box: the selection and its notification.
void PickRow(HWND combo, int index);
// The user types text into an edit field (or a combo box's).
void Type(HWND window, const std::string& text);
// A path of the build machine, as a Windows path.
std::string BuildFile(const std::string& hostPath);

} // namespace tos::test
