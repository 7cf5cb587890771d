#pragma once

#include <cstddef>

#include "forms/batch_form.h"
#include "win/ui/control_mirror.h"

namespace tos::win::ui {

// The table of the batch window: one owner-data list view over the rows of the
// batch form, a line per row whatever their number, so the window count stays
// fixed (the view, its header and one editor). The view asks for the lines it
// shows and draws them from the model. A click on a check box asks the model to
// toggle it, one on Browse presses the row's button, one on a text cell opens
// the editor over the cell: Enter, Tab or leaving it hands its text to the
// model, Escape drops it. Space toggles Process of the focused line and F2 edits
// its .max file. The .max file column takes any extra width.
class BatchTable : public ControlMirror {
public:
    BatchTable(FormWindow& form, Control& table, BatchForm& batch);
    ~BatchTable() override;
    void Make();
    bool OnNotify(NMHDR* header, LRESULT& result) override;
    void OnMeasure(MEASUREITEMSTRUCT* item) override;
    void OnDraw(const DRAWITEMSTRUCT* item) override;

    // The editor while a cell is edited, else nullptr.
    HWND Editor() const;

protected:
    void Created() override;
    void PaintOwn() override {}

private:
    static LRESULT CALLBACK ViewProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK EditorProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

    // The model replaced its rows: the view shows the new count.
    void RowsReplaced();
    // The user's click or key on a cell, forwarded to the cell's control.
    void Activate(std::size_t row, BatchColumn column);
    void BeginEdit(std::size_t row, BatchColumn column);
    // Hands the editor's text to the model (commit) or drops it, and hides it.
    void EndEdit(bool commit);
    // The next text column of the line after (or before) the one edited.
    void EditNext(bool backwards);
    int FocusedRow() const;
    void FitColumns();
    void DrawCell(HDC dc, RECT cell, const BatchCell& shown) const;

    BatchForm& batch_;
    HWND editor_ = nullptr;
    WNDPROC viewBase_ = nullptr;
    WNDPROC editorBase_ = nullptr;
    bool editing_ = false;
    std::size_t editRow_ = 0;
    BatchColumn editColumn_ = BatchColumn::MaxFile;
};

} // namespace tos::win::ui
