#include <gtest/gtest.h>

#include "common/scratch.h"
#include "project/scene_fixture.h"
#include "window_driver.h"

#include <commctrl.h>

namespace tos::test {
namespace {

// What a cell of the table says, read through the view.
std::string Cell(HWND table, std::size_t row, BatchColumn column)
{
    return ListRow(table, static_cast<int>(row), static_cast<int>(column));
}

// The click the view reports to the window, at the middle of a cell of a line in sight.
void Click(HWND table, std::size_t row, BatchColumn column)
{
    RECT cell{};
    cell.top = static_cast<LONG>(column);
    cell.left = LVIR_BOUNDS;
    SendMessageA(table, LVM_GETSUBITEMRECT, row, reinterpret_cast<LPARAM>(&cell));
    NMITEMACTIVATE click{};
    click.hdr = {table, static_cast<UINT_PTR>(GetDlgCtrlID(table)), static_cast<UINT>(NM_CLICK)};
    click.ptAction = {(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
    SendMessageA(GetParent(table), WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
}

LRESULT MaxFileWidth(HWND table)
{
    return SendMessageA(table, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(BatchColumn::MaxFile), 0);
}

void Key(HWND window, WPARAM key)
{
    SendMessageA(window, WM_KEYDOWN, key, 0);
}

TEST(BatchWindowTest, OneListViewMirrorsEveryRowAndForwardsClicksKeysAndEdits)
{
    ScratchDir scratch;
    std::vector<SceneModel> models;
    for (int i = 0; i < 2100; ++i)
        models.push_back(
            {.value = "Obj" + std::to_string(10000 + i) + ".SLT", .position = "1600,0,1700"});
    Windows w;
    scratch.Write("Valley.scn", SceneText(models));
    w.platform.dialogAnswers = {scratch.Write("Valley.prj", "")};
    SendMessageA(w.Main("btnBrowseProjectFile"), BM_CLICK, 0, 0);
    w.platform.ClearMessages();
    const BatchForm& batch = w.app.batch;
    HWND dialog = w.batchWindow.Handle();
    HWND table = w.Batch("tblRows");
    LRESULT maxFileWidth = 0;
    std::size_t last = 0;
    ClickAndDo(w.Main("btnProcessAll"),
               {[&] {
                    EXPECT_TRUE(IsWindowVisible(dialog) && !IsWindowEnabled(w.main.Handle()));
                    EXPECT_EQ(Text(w.Batch("txtBatchFile")), scratch.File("Valley.tosbatch"));
                    // One line for each row of the model, headed as the model says.
                    ASSERT_GT(batch.rows.size(), 2000u);
                    ASSERT_EQ(ListCount(table), static_cast<int>(batch.rows.size()));
                    char heading[64] = "";
                    LVCOLUMNA column{};
                    column.mask = LVCF_TEXT;
                    column.pszText = heading;
                    column.cchTextMax = sizeof heading;
                    SendMessageA(table, LVM_GETCOLUMNA, static_cast<WPARAM>(BatchColumn::Scale),
                                 reinterpret_cast<LPARAM>(&column));
                    EXPECT_STREQ(heading, BatchHeading(BatchColumn::Scale));
                    EXPECT_EQ(Cell(table, 0, BatchColumn::Process),
                              "[ ] " + batch.rows[0]->selection);

                    // The last line is reached and edited like the first.
                    last = batch.rows.size() - 1;
                    SendMessageA(table, LVM_ENSUREVISIBLE, last, FALSE);
                    RECT line{}, client;
                    line.left = LVIR_BOUNDS;
                    SendMessageA(table, LVM_GETITEMRECT, last, reinterpret_cast<LPARAM>(&line));
                    GetClientRect(table, &client);
                    EXPECT_TRUE(line.top >= 0 && line.bottom <= client.bottom);
                    Click(table, last, BatchColumn::UseMax);
                    EXPECT_TRUE(batch.rows[last]->chkUseMaxName.Checked());
                    Click(table, last, BatchColumn::MaxFile);
                    ASSERT_NE(w.batchWindow.Table().Editor(), nullptr);
                    Type(w.batchWindow.Table().Editor(), "D:\\Red Barn.max");
                    Key(w.batchWindow.Table().Editor(), VK_RETURN);
                    EXPECT_EQ(w.batchWindow.Table().Editor(), nullptr);
                    EXPECT_EQ(batch.rows[last]->txtMaxFile.Text(), "D:\\Red Barn.max");
                    EXPECT_EQ(Cell(table, last, BatchColumn::ObjectName), "Red Barn");
                    // Escape drops an edit; Tab hands it over and edits the next text cell.
                    Click(table, last, BatchColumn::Scale);
                    Type(w.batchWindow.Table().Editor(), "2");
                    Key(w.batchWindow.Table().Editor(), VK_ESCAPE);
                    EXPECT_EQ(batch.rows[last]->txtVerticalScale.Text(), "");
                    Click(table, last, BatchColumn::Scale);
                    Type(w.batchWindow.Table().Editor(), "2");
                    Key(w.batchWindow.Table().Editor(), VK_TAB);
                    EXPECT_EQ(batch.rows[last]->txtVerticalScale.Text(), "2");
                    // Browse presses the row's button; Space toggles Process of the focused line.
                    const std::string oak = scratch.Write("Oak.max", "");
                    w.platform.dialogAnswers = {oak};
                    Click(table, 1, BatchColumn::Browse);
                    EXPECT_EQ(Cell(table, 1, BatchColumn::MaxFile), oak);
                    LVITEMA focus{};
                    focus.state = focus.stateMask = LVIS_FOCUSED;
                    SendMessageA(table, LVM_SETITEMSTATE, last, reinterpret_cast<LPARAM>(&focus));
                    Key(table, VK_SPACE);
                    EXPECT_EQ(Cell(table, last, BatchColumn::Process),
                              "[x] " + batch.rows[last]->selection);
                    SendMessageA(w.Batch("btnRunBatch"), BM_CLICK, 0, 0);
                },
                [&] {
                    HWND summary = w.Batch("lstSummary");
                    ASSERT_EQ(ListCount(summary), static_cast<int>(batch.lstSummary.RowCount()));
                    EXPECT_EQ(ListRow(summary, 0), batch.lstSummary.Row(0));
                    // The .max file column takes the extra width.
                    RECT outer;
                    GetWindowRect(dialog, &outer);
                    maxFileWidth = MaxFileWidth(table);
                    SetWindowPos(dialog, nullptr, 0, 0, outer.right - outer.left + 200,
                                 outer.bottom - outer.top, SWP_NOMOVE | SWP_NOZORDER);
                },
                [&] {
                    EXPECT_EQ(MaxFileWidth(table), maxFileWidth + 200);
                    // The close box closes as Close does: the table holds changes no list
                    // keeps, and the user is told.
                    SendMessageA(dialog, WM_CLOSE, 0, 0);
                }});
    EXPECT_TRUE(!IsWindowVisible(dialog) && IsWindowEnabled(w.main.Handle()));
    EXPECT_EQ(w.platform.Texts().size(), 1u); // the question about the changes
}

} // namespace
} // namespace tos::test
