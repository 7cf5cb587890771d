#pragma once

#include "win/ui/form_window.h"

namespace tos {
struct App;
}

namespace tos::win::ui {

// The "Combine Scripts" window over the combiner form model, owned by the main
// window. The model decides what the list shows and when the window hides; the
// window runs the modal loop while the model holds it visible.
class CompilerWindow : public FormWindow {
public:
    // Registers itself as the model's modal view.
    CompilerWindow(App& app, HWND owner);
    ~CompilerWindow() override;

protected:
    // The close box and Escape do what the Done button does.
    void OnClose() override;
    void OnCancel() override;
    int Pointer() const override;

private:
    void SyncForm();

    App& app_;
};

} // namespace tos::win::ui
