#pragma once

#include <string_view>

#include "win/ui/batch_table.h"
#include "win/ui/form_window.h"

namespace tos {
struct BatchForm;
}

namespace tos::win::ui {

// The "Process All" window over the batch form model, owned by the main
// window: the batch list's path with Load and Save, the table of the model's
// rows, the summary of the last run, and Process All and Close. The window runs
// the modal loop while the model holds it visible.
class BatchWindow : public FormWindow {
public:
    // Registers itself as the model's modal view.
    BatchWindow(BatchForm& form, HWND owner);
    ~BatchWindow() override;

    // The window of the control of that name, or nullptr.
    HWND FindControl(std::string_view name) const { return Find(name); }
    const BatchTable& Table() const { return *table_; }

protected:
    // The close box and Escape do what the Close button does.
    void OnClose() override;
    void OnCancel() override;
    int Pointer() const override;

private:
    void Open();
    void SyncForm();

    BatchForm& form_;
    BatchTable* table_ = nullptr;
    bool placed_ = false;
};

} // namespace tos::win::ui
