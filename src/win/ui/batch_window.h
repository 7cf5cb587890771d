#pragma once

#include <memory>
#include <string_view>

#include "forms/controls.h"
#include "win/ui/batch_table.h"
#include "win/ui/form_window.h"
#include "win/ui/scroll_view.h"

namespace tos {
struct BatchForm;
}

namespace tos::win::ui {

// The "Process All" window over the batch form model, owned by the main
// window: the batch list's path with Load and Save, a scrolling table with one
// line of controls for each row of the model, the summary of the last run, and
// Process All and Close. The table is made anew whenever the model replaces its
// rows. The window runs the modal loop while the model holds it visible.
class BatchWindow : public FormWindow {
public:
    // Registers itself as the model's modal view.
    BatchWindow(BatchForm& form, HWND owner);
    ~BatchWindow() override;

    // The window of the control of that name, the table's included, or nullptr.
    HWND FindControl(std::string_view name) const;
    const ScrollView& Table() const { return table_; }

protected:
    // The close box and Escape do what the Close button does.
    void OnClose() override;
    void OnCancel() override;
    int Pointer() const override;
    // A control the keyboard reached in the table is scrolled into sight.
    void FocusMoved(HWND focus) override;

private:
    void BuildHeadings();
    void BuildTable();
    void Open();
    void SyncForm();

    BatchForm& form_;
    // Captions of the window alone: they stand for no control of the model.
    Label lblProcessHeading_{"lblProcessHeading", "Process object"};
    Label lblMaxFileHeading_{"lblMaxFileHeading", "MAX file"};
    Label lblObjectNameHeading_{"lblObjectNameHeading", "Object name"};
    Label lblNameFromHeading_{"lblNameFromHeading", "Name from"};
    Label lblScaleHeading_{"lblScaleHeading", "Vertical\nscale"};
    Label lblOffsetHeading_{"lblOffsetHeading", "Vertical\noffset"};
    Label lblSummary_{"lblSummary", "Summary of the last run:"};
    ScrollView table_;
    std::unique_ptr<BatchTable> rows_;
    bool placed_ = false;
};

} // namespace tos::win::ui
