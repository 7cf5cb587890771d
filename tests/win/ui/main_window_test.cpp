#include <gtest/gtest.h>

#include "win/platform/win32.h"

#include <commctrl.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>

#include "common/scratch.h"
#include "common/shown_texts.h"
#include "win/ui/fonts.h"
#include "window_driver.h"

namespace tos::test {
namespace {

LONG Style(HWND window)
{
    return GetWindowLongA(window, GWL_STYLE);
}

RECT Place(HWND control)
{
    RECT r;
    GetWindowRect(control, &r);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&r), 2);
    return r;
}

LOGFONTA FontOf(HWND window)
{
    LOGFONTA font{};
    GetObjectA(reinterpret_cast<HFONT>(SendMessageA(window, WM_GETFONT, 0, 0)), sizeof font, &font);
    return font;
}

// The tooltip a form shows for one of its controls.
std::string Tip(HWND form, HWND control)
{
    struct Search {
        HWND form;
        HWND tips = nullptr;
    } search{form};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM data) {
            auto* s = reinterpret_cast<Search*>(data);
            char name[64];
            GetClassNameA(window, name, sizeof name);
            if (GetWindow(window, GW_OWNER) == s->form && lstrcmpiA(name, TOOLTIPS_CLASSA) == 0)
                s->tips = window;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    char text[256] = "";
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.hwnd = form;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = text;
    SendMessageA(search.tips, TTM_GETTEXTA, sizeof text, reinterpret_cast<LPARAM>(&tool));
    return text;
}

// The width of the widest of the rows in the window's font.
LONG WidestText(HWND window, const std::vector<std::string>& rows)
{
    HDC dc = GetDC(window);
    SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(window, WM_GETFONT, 0, 0)));
    LONG widest = 0;
    for (const std::string& row : rows) {
        SIZE extent;
        GetTextExtentPoint32A(dc, row.c_str(), static_cast<int>(row.size()), &extent);
        widest = std::max(widest, extent.cx);
    }
    ReleaseDC(window, dc);
    return widest;
}

void ExpectMirrors(const Windows& w)
{
    HWND form = w.main.Handle();
    // The brush the form gives a box, asked as the box itself asks: a read-only or
    // disabled edit asks as a static control does.
    const auto back = [&](const std::string& name) {
        HWND box = w.Main(name.c_str());
        HDC dc = GetDC(form);
        const bool asStatic = (Style(box) & ES_READONLY) || !IsWindowEnabled(box);
        const auto brush = reinterpret_cast<HBRUSH>(
            SendMessageA(form, asStatic ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT,
                         reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(box)));
        ReleaseDC(form, dc);
        return brush == GetSysColorBrush(COLOR_BTNFACE)  ? BackColor::ButtonFace
               : brush == GetSysColorBrush(COLOR_WINDOW) ? BackColor::Window
                                                         : BackColor(-1);
    };
    test::ExpectMirrors(
        w.app.main,
        {.text = [&](auto& n) { return Text(w.Main(n.c_str())); },
         .tip = [&](auto& n) { return Tip(form, w.Main(n.c_str())); },
         .enabled = [&](auto& n) { return IsWindowEnabled(w.Main(n.c_str())) != FALSE; },
         .checked =
             [&](auto& n) {
                 const LRESULT s = SendMessageA(w.Main(n.c_str()), BM_GETCHECK, 0, 0);
                 return s == BST_CHECKED ? 1 : s == BST_UNCHECKED ? 0 : -1;
             },
         .readOnly = [&](auto& n) { return (Style(w.Main(n.c_str())) & ES_READONLY) != 0; },
         .back = back});
}

// Loads a copy of the example project through the Browse button; returns the row
// of the oak in the object list.
int LoadValley(Windows& w, const ScratchDir& scratch)
{
    w.platform.dialogAnswers = {CopyExampleProject(scratch)};
    SendMessageA(w.Main("btnBrowseProjectFile"), BM_CLICK, 0, 0);
    Pump();
    const auto& objects = w.app.main.comboSelectObject.Items().Rows();
    const auto tree = std::find(objects.begin(), objects.end(), "Tree");
    EXPECT_NE(tree, objects.end());
    return static_cast<int>(tree - objects.begin());
}

// The window shows what the model holds, now and after the model changes; clicks
// and keys go to the model. What the model makes of them is tested there.
TEST(MainWindowTest, MirrorsTheModelAndForwardsClicks)
{
    Windows w;
    MainForm& m = w.app.main;
    HWND form = w.main.Handle();
    RECT client;
    GetClientRect(form, &client);
    EXPECT_TRUE(IsWindowVisible(form) && Text(form) == m.caption);
    EXPECT_TRUE(!(Style(form) & WS_MAXIMIZEBOX) && (Style(form) & WS_THICKFRAME));
    // The designed size at Wine's 96 dots per inch, 15 twips a pixel.
    EXPECT_EQ(client.right * 15, MainForm::kWidthTwips);
    EXPECT_EQ(client.bottom * 15, MainForm::kHeightTwips);
    ExpectMirrors(w);
    m.txtGridRes.SetText("7.5");
    m.btnProcess.SetEnabled(true);
    m.lblScriptCheck.SetCaption("3ds Max would stop at line 13: the name Caf\xE9 needs quotes.");
    for (const char* clicked : {"chkPerimeterTile", "chkMax2008", "chkUseObjectScale"})
        SendMessageA(w.Main(clicked), BM_CLICK, 0, 0);
    EXPECT_TRUE(m.chkPerimeterTile.Checked() && m.chkMax2008.Checked() && !m.txtGridSize.Locked());
    ExpectMirrors(w);

    // The script list is fixed-pitch at 9 points; the object list uses Arial's face.
    const LOGFONTA list = FontOf(w.Main("List2"));
    const LOGFONTA combo = FontOf(w.Main("comboSelectObject"));
    EXPECT_EQ(std::string(list.lfFaceName), win::ui::InstalledFace("Courier New"));
    EXPECT_EQ(list.lfHeight, -12); // 9 points at 96 dots per inch
    EXPECT_EQ(std::string(combo.lfFaceName), win::ui::InstalledFace("Arial"));

    // The hourglass stands over the form while it works.
    w.app.SetMousePointer(FormId::Main, kPointerHourglass);
    EXPECT_TRUE(SendMessageA(form, WM_SETCURSOR, reinterpret_cast<WPARAM>(form),
                             MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_WAIT));
    w.app.SetMousePointer(FormId::Main, kPointerDefault);
    SendMessageA(form, WM_SETCURSOR, reinterpret_cast<WPARAM>(form),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_ARROW));

    // The close box does what Exit does.
    SendMessageA(form, WM_CLOSE, 0, 0);
    EXPECT_TRUE(w.ended && !w.app.main.loaded && !IsWindowVisible(form));
}

TEST(MainWindowTest, WindowMessagesRaiseTheControlsEvents)
{
    Windows w;
    HWND combo = w.Main("comboSelectObject");
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ASSERT_TRUE(GetComboBoxInfo(combo, &parts));
    HWND list = parts.hwndList, maxFile = w.Main("txtMaxFile"), other = w.Main("txtMaxObjectName");
    ComboBox& c = w.app.main.comboSelectObject;
    TextBox& t = w.app.main.txtMaxFile;
    struct Row {
        const char* what;
        std::function<void()> send;
        Event* raised;
    };
    const auto send = [](HWND to, UINT message, WPARAM wParam) {
        return [=] { SendMessageA(to, message, wParam, 0); };
    };
    // clang-format off
    const Row rows[] = {
        {.what = "scroll", .send = send(list, WM_VSCROLL, SB_LINEDOWN), .raised = &c.Scroll},
        {.what = "drop down", .send = send(combo, CB_SHOWDROPDOWN, TRUE), .raised = &c.DropDown},
        {.what = "click", .send = send(maxFile, WM_LBUTTONUP, 0), .raised = &t.Click},
        {.what = "double click", .send = send(maxFile, WM_LBUTTONDBLCLK, 0), .raised = &t.DblClick},
        {.what = "focus in", .send = [&] { SetFocus(maxFile); }, .raised = &t.GotFocus},
        {.what = "focus out", .send = [&] { SetFocus(other); }, .raised = &t.LostFocus},
    };
    // clang-format on
    SetFocus(w.Main("txtVerticalScale"));
    for (const Row& r : rows) {
        auto raised = std::make_shared<int>(0);
        r.raised->Connect([raised] { ++*raised; });
        r.send();
        EXPECT_EQ(*raised, 1) << r.what;
    }
    SendMessageA(combo, CB_SHOWDROPDOWN, FALSE, 0);
}

TEST(MainWindowTest, LoadsTheExampleProjectAndProcessesAnObjectIntoAFile)
{
    ScratchDir scratch;
    Windows w;
    const int tree = LoadValley(w, scratch);
    EXPECT_EQ(w.platform.Texts(), std::vector<std::string>{});
    EXPECT_TRUE(w.app.main.btnProcess.Enabled());
    ExpectMirrors(w);

    // Every row of the object list is offered, and the drop-down fits the longest.
    HWND combo = w.Main("comboSelectObject");
    const auto& objects = w.app.main.comboSelectObject.Items().Rows();
    ASSERT_EQ(SendMessageA(combo, CB_GETCOUNT, 0, 0), static_cast<LRESULT>(objects.size()));
    EXPECT_GT(SendMessageA(combo, CB_GETDROPPEDWIDTH, 0, 0), WidestText(combo, objects));

    // The user picks the oak's row with the object name following the selection.
    Type(w.Main("txtMaxFile"), "C:\\Models\\Oak.max");
    SendMessageA(w.Main("chkUseTolvarineName"), BM_CLICK, 0, 0);
    PickRow(combo, tree);
    EXPECT_EQ(Text(w.Main("txtMaxObjectName")), "Tree");

    // A former script scrolled to its end; the new one shows from its first row.
    for (int i = 0; i < 200; ++i)
        w.app.main.List2.AddItem("former");
    Pump();
    SendMessageA(w.Main("List2"), LVM_ENSUREVISIBLE, 199, FALSE);
    ASSERT_GT(SendMessageA(w.Main("List2"), LVM_GETTOPINDEX, 0, 0), 0);

    SendMessageA(w.Main("btnProcess"), BM_CLICK, 0, 0);
    Pump();
    EXPECT_EQ(w.platform.Texts(), std::vector<std::string>{});
    const std::string script = ReadBytes(w.app.state.ScriptFileName);
    ASSERT_TRUE(std::filesystem::exists(w.app.state.ScriptFileName));

    // The list shows the script as written, from its first row, every row whole.
    HWND list = w.Main("List2");
    const auto& lines = w.app.main.List2.Rows();
    ASSERT_EQ(ListCount(list), static_cast<int>(lines.size()));
    std::string shown;
    for (int i = 0; i < ListCount(list); ++i)
        shown += ListRow(list, i) + "\r\n";
    EXPECT_EQ(shown, script);
    EXPECT_EQ(SendMessageA(list, LVM_GETTOPINDEX, 0, 0), 0);
    EXPECT_GE(SendMessageA(list, LVM_GETCOLUMNWIDTH, 0, 0), WidestText(list, lines));

    // Scene Map reaches the model, which writes the picture beside the project and opens it.
    SendMessageA(w.Main("btnSceneMap"), BM_CLICK, 0, 0);
    EXPECT_EQ(w.platform.openedDocuments, std::vector<std::string>{scratch.File("Valley_Map.svg")});
}

TEST(MainWindowTest, TheScriptListTakesTheRoomAndShowsLongScriptsAtOnce)
{
    Windows w;
    HWND form = w.main.Handle();
    struct Follow {
        const char* name;
        int dx, dy;       // how the control's size follows the form's
        int moveX, moveY; // how its place follows
    };
    const Follow follows[] = {
        {.name = "List2", .dx = 1, .dy = 1, .moveX = 0, .moveY = 0},
        {.name = "frameMaxScriptOutput", .dx = 1, .dy = 1, .moveX = 0, .moveY = 0},
        {.name = "lblCredits", .dx = 1, .dy = 0, .moveX = 0, .moveY = 1},
        {.name = "lblScriptCheck", .dx = 1, .dy = 0, .moveX = 0, .moveY = 1},
        {.name = "chkMax2008", .dx = 0, .dy = 0, .moveX = 0, .moveY = 0},
        {.name = "btnProcess", .dx = 0, .dy = 0, .moveX = 0, .moveY = 0},
    };
    std::vector<RECT> before;
    for (const Follow& f : follows)
        before.push_back(Place(w.Main(f.name)));
    RECT outer;
    GetWindowRect(form, &outer);
    SetWindowPos(form, nullptr, 0, 0, outer.right - outer.left + 200,
                 outer.bottom - outer.top + 150, SWP_NOMOVE | SWP_NOZORDER);
    for (std::size_t i = 0; i < std::size(follows); ++i) {
        const Follow& f = follows[i];
        const RECT now = Place(w.Main(f.name));
        EXPECT_EQ(now.right - now.left, before[i].right - before[i].left + 200 * f.dx) << f.name;
        EXPECT_EQ(now.bottom - now.top, before[i].bottom - before[i].top + 150 * f.dy) << f.name;
        EXPECT_EQ(now.left, before[i].left + 200 * f.moveX) << f.name;
        EXPECT_EQ(now.top, before[i].top + 150 * f.moveY) << f.name;
    }

    // Rows come one by one; the view shows them all once the burst is over.
    constexpr int kRows = 30000;
    for (int i = 0; i < kRows; ++i)
        w.app.main.List2.AddItem("row " + std::to_string(i));
    Pump();
    HWND list = w.Main("List2");
    EXPECT_EQ(ListCount(list), kRows);
    EXPECT_EQ(ListRow(list, kRows - 1), "row 29999");
}

} // namespace
} // namespace tos::test
