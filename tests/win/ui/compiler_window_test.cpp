#include <gtest/gtest.h>

#include <functional>

#include "common/scratch.h"
#include "win/ui/control_mirror.h"
#include "window_driver.h"

namespace tos::test {
namespace {

TEST(CompilerWindowTest, ModalDialogInTabOrderThatAddsFilesAndClosesAsDone)
{
    ScratchDir scratch;
    Windows w;
    HWND dialog = w.compiler.Handle();
    const LONG style = GetWindowLongA(dialog, GWL_STYLE);
    EXPECT_EQ(Text(dialog), w.app.compiler.caption);
    EXPECT_FALSE(style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX));
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), w.main.Handle());
    EXPECT_EQ(Text(w.Compiler("frameCompiledMaxScript")),
              w.app.compiler.frameCompiledMaxScript.Caption());
    std::vector<std::string> tabOrder;
    for (HWND at = w.Compiler("btnDone"); tabOrder.size() < 4;
         at = GetNextDlgTabItem(dialog, at, FALSE))
        tabOrder.push_back(win::ui::ControlName(at));
    EXPECT_EQ(tabOrder,
              (std::vector<std::string>{"btnDone", "lstMaxScripts", "btnAddFile", "btnSaveAs"}));

    w.app.compiler.lstMaxScripts.AddItem("left from before");
    const std::string script = scratch.Write("a.ms", "one\r\ntwo\r\nthree\r\n");
    // Each opening starts empty; Done and the close box both end the modal loop.
    struct Leave {
        const char* by;
        std::function<void()> leave;
    };
    const Leave leaves[] = {
        {.by = "btnDone", .leave = [&] { SendMessageA(w.Compiler("btnDone"), BM_CLICK, 0, 0); }},
        {.by = "close box", .leave = [&] { SendMessageA(dialog, WM_CLOSE, 0, 0); }},
    };
    for (const Leave& l : leaves) {
        ClickAndDo(w.Main("btnRunScriptCompiler"), {[&] {
                       Pump();
                       HWND list = w.Compiler("lstMaxScripts");
                       EXPECT_TRUE(IsWindowVisible(dialog) && !IsWindowEnabled(w.main.Handle()));
                       EXPECT_EQ(ListCount(list), 0);
                       w.platform.dialogAnswers = {script};
                       SendMessageA(w.Compiler("btnAddFile"), BM_CLICK, 0, 0);
                       Pump();
                       EXPECT_EQ(ListCount(list), 5);
                       EXPECT_EQ(ListRow(list, 2) + "|" + ListRow(list, 3), "three|");
                       l.leave();
                   }});
        EXPECT_TRUE(!IsWindowVisible(dialog) && IsWindowEnabled(w.main.Handle())) << l.by;
    }
}

} // namespace
} // namespace tos::test
