#pragma once

#include <cstddef>

#include "win/ui/control_mirror.h"

namespace tos::win::ui {

// A list box as an owner-data list view: the view holds no rows of its own, it
// asks for the rows it shows and draws them from the model's list. So a script
// of tens of thousands of rows shows as fast as a short one, and any count is
// shown. Rows are drawn whole, without "...", and a row wider than the list
// brings a horizontal scroll bar. The rows follow the model once a burst of
// additions is over; a list that was emptied and filled again shows its first
// row.
class ListMirror : public ControlMirror {
public:
    ListMirror(FormWindow& form, ListBox& list) : ControlMirror(form, list), list_(list) {}
    void Make();
    void Changed() override;
    void OnSync() override;
    bool OnNotify(NMHDR* header, LRESULT& result) override;
    void OnMeasure(MEASUREITEMSTRUCT* item) override;
    void OnDraw(const DRAWITEMSTRUCT* item) override;

protected:
    void Created() override;
    void PaintOwn() override;

private:
    // Row i as the view may show it: a row gone since the last sync reads as "".
    const std::string& Row(std::size_t index) const;
    int WidestRowPixels() const;
    COLORREF Back() const;

    ListBox& list_;
    std::size_t shownRows_ = 0;
    bool emptied_ = false;
};

} // namespace tos::win::ui
