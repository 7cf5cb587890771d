#pragma once

#include "win/ui/form_window.h"

namespace tos {
struct BatchForm;
}

namespace tos::win::ui {

// Where the columns of the batch table start, in pixels at 96 DPI from the
// table's left edge; the headings above the table stand at the same places.
struct BatchColumns {
    static constexpr int kProcess = 4;
    static constexpr int kMaxFile = 218;
    static constexpr int kBrowse = 418;
    static constexpr int kObjectName = 482;
    static constexpr int kNameFrom = 622;
    static constexpr int kUseMax = 704;
    static constexpr int kScale = 784;
    static constexpr int kOffset = 844;
    static constexpr int kWidth = 900;
};

// The table of the batch window: one line of controls for each row of the
// batch form, in a child window as tall as all its lines, which the batch
// window's scroll view moves. It mirrors the rows it was made for; a new set of
// rows needs a new table. The .max file box takes any extra width.
class BatchTable : public FormWindow {
public:
    BatchTable(BatchForm& form, HWND parent);

    int HeightPixels() const;

protected:
    // A child window is never closed by the user.
    void OnClose() override {}
    int Pointer() const override;

private:
    BatchForm& form_;
};

} // namespace tos::win::ui
