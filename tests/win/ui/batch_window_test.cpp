#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <functional>

#include "common/scratch.h"
#include "project/scene_fixture.h"
#include "window_driver.h"

namespace tos::test {
namespace {

// What the user does while the batch window's modal loop runs: one step at each
// turn of that loop, so the loop sees what each step did before the next.
std::deque<std::function<void()>> steps;

void CALLBACK NextStep(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    auto step = std::move(steps.front());
    steps.pop_front();
    if (!steps.empty())
        SetTimer(nullptr, 0, 0, &NextStep);
    step();
}

void OpenProcessAllAnd(Windows& w, std::deque<std::function<void()>> user)
{
    steps = std::move(user);
    SetTimer(nullptr, 0, 0, &NextStep);
    SendMessageA(w.Main("btnProcessAll"), BM_CLICK, 0, 0);
}

void LoadProject(Windows& w, const ScratchDir& scratch, const std::string& scene)
{
    scratch.Write("Valley.scn", scene);
    w.platform.dialogAnswers = {scratch.Write("Valley.prj", "")};
    SendMessageA(w.Main("btnBrowseProjectFile"), BM_CLICK, 0, 0);
    Pump();
    w.platform.ClearMessages();
}

// The index of the table's line for a row of the object list.
std::string Line(const Windows& w, const std::string& selection)
{
    const auto& rows = w.app.main.comboSelectObject.Items().Rows();
    return std::to_string(std::find(rows.begin(), rows.end(), selection) - rows.begin());
}

TEST(BatchWindowTest, ModalTableOfTheObjectListRunsACheckedRowIntoAScript)
{
    ScratchDir scratch;
    Windows w;
    LoadProject(w, scratch, ReadBytes(SourceFile("examples/Valley/Valley.scn")));
    HWND dialog = w.batchWindow.Handle();
    const auto& objects = w.app.main.comboSelectObject.Items().Rows();
    ASSERT_GT(objects.size(), 5u);
    const std::string barn = Line(w, "Barn");
    bool ran = false;
    OpenProcessAllAnd(
        w, {[&] {
                ran = true;
                EXPECT_TRUE(IsWindowVisible(dialog) && !IsWindowEnabled(w.main.Handle()));
                EXPECT_EQ(Text(dialog), "Process All");
                EXPECT_EQ(GetWindow(dialog, GW_OWNER), w.main.Handle());
                EXPECT_EQ(Text(w.Batch("txtBatchFile")), scratch.File("Valley.tosbatch"));
                // One line for each row of the object list, captioned with the row.
                for (std::size_t i = 0; i < objects.size(); ++i)
                    EXPECT_EQ(Text(w.Batch("chkProcess_" + std::to_string(i))), objects[i]);
                EXPECT_EQ(w.Batch("chkProcess_" + std::to_string(objects.size())), nullptr);

                // The name follows the .max file, as on the main form.
                SendMessageA(w.Batch("chkUseMaxName_" + barn), BM_CLICK, 0, 0);
                Type(w.Batch("txtMaxFile_" + barn), "D:\\Red Barn.max");
                SendMessageA(w.Batch("chkProcess_" + barn), BM_CLICK, 0, 0);
                EXPECT_EQ(Text(w.Batch("txtObjectName_" + barn)), "Red Barn");
                EXPECT_EQ(SendMessageA(w.Batch("chkProcess_" + barn), BM_GETCHECK, 0, 0),
                          BST_CHECKED);
                SendMessageA(w.Batch("btnRunBatch"), BM_CLICK, 0, 0);
            },
            [&] {
                HWND summary = w.Batch("lstSummary");
                const std::string script = scratch.File("Valley_Main_Barn.ms");
                ASSERT_TRUE(std::filesystem::exists(script));
                const std::string text = ReadBytes(script);
                const auto rows = std::count(text.begin(), text.end(), '\n');
                ASSERT_EQ(ListCount(summary), 3);
                EXPECT_EQ(ListRow(summary, 0),
                          "Barn: " + script + ", " + std::to_string(rows) + " rows");
                EXPECT_EQ(ListRow(summary, 1), "    3ds Max would stop at line 13: the name Red "
                                               "Barn needs quotes. Tick For 3ds Max 2008 and "
                                               "later.");
                EXPECT_EQ(ListRow(summary, 2),
                          "Joined: " + scratch.File("Valley_Main_All.ms") + ", 1 script");
                EXPECT_NE(text.find("Red Barn"), std::string::npos);
                // The close box closes as Close does: the table holds changes no
                // list keeps, and the user is told.
                SendMessageA(dialog, WM_CLOSE, 0, 0);
            }});
    EXPECT_TRUE(ran && steps.empty());
    EXPECT_TRUE(!IsWindowVisible(dialog) && IsWindowEnabled(w.main.Handle()));
    ASSERT_EQ(w.platform.Texts().size(), 1u);
    EXPECT_EQ(w.platform.Texts()[0].rfind("The table holds changes", 0), 0u);
}

TEST(BatchWindowTest, TheTableScrollsToTheControlTheKeyboardReachesAndGrowsWithTheWindow)
{
    ScratchDir scratch;
    std::vector<SceneModel> models;
    for (int i = 0; i < 40; ++i)
        models.push_back({.value = "Obj" + std::to_string(10 + i) + ".SLT",
                          .position = std::to_string(1600 + 10 * i) + ",0,1700"});
    Windows w;
    LoadProject(w, scratch, SceneText(models));
    ASSERT_GE(w.app.main.comboSelectObject.Items().Rows().size(), 40u);
    HWND dialog = w.batchWindow.Handle();
    HWND view = w.batchWindow.Table().Handle();
    const std::string last = Line(w, "Obj49");
    auto inSight = [&](HWND control) {
        RECT r, client;
        GetWindowRect(control, &r);
        MapWindowPoints(nullptr, view, reinterpret_cast<POINT*>(&r), 2);
        GetClientRect(view, &client);
        return r.top >= 0 && r.bottom <= client.bottom;
    };
    RECT before{};
    OpenProcessAllAnd(w, {[&] {
                              EXPECT_EQ(w.batchWindow.Table().Top(), 0);
                              EXPECT_FALSE(inSight(w.Batch("txtMaxFile_" + last)));
                              SetFocus(w.Batch("txtMaxFile_" + last));
                          },
                          [&] {
                              EXPECT_GT(w.batchWindow.Table().Top(), 0);
                              EXPECT_TRUE(inSight(w.Batch("txtMaxFile_" + last)));
                              SendMessageA(view, WM_VSCROLL, SB_TOP, 0);
                              EXPECT_TRUE(inSight(w.Batch("txtMaxFile_0")));
                              // The wheel over a box scrolls the table.
                              SendMessageA(w.Batch("txtMaxFile_0"), WM_MOUSEWHEEL,
                                           MAKEWPARAM(0, -WHEEL_DELTA), 0);
                              EXPECT_GT(w.batchWindow.Table().Top(), 0);
                              SendMessageA(view, WM_VSCROLL, SB_TOP, 0);
                              GetWindowRect(w.Batch("txtMaxFile_0"), &before);
                              RECT outer;
                              GetWindowRect(dialog, &outer);
                              SetWindowPos(dialog, nullptr, 0, 0, outer.right - outer.left + 200,
                                           outer.bottom - outer.top, SWP_NOMOVE | SWP_NOZORDER);
                          },
                          [&] {
                              // The .max file box takes the extra width.
                              RECT now;
                              GetWindowRect(w.Batch("txtMaxFile_0"), &now);
                              EXPECT_EQ(now.right - now.left, before.right - before.left + 200);
                              SendMessageA(w.Batch("btnClose"), BM_CLICK, 0, 0);
                          }});
    EXPECT_TRUE(steps.empty() && !IsWindowVisible(dialog));
}

} // namespace
} // namespace tos::test
