#pragma once

#include <QDialog>

#include "gui/control_views.h"

class QCloseEvent;

namespace tos {
struct App;
}

namespace tos::gui {

// The "Combine Scripts" window over the combiner form model. It never holds
// state of its own: the model decides what the list shows and when the window
// hides, and the window repaints from the model's notifications.
class CompilerWindow : public QDialog {
    Q_OBJECT

public:
    // Registers itself as the model's modal view, owned by the main window.
    CompilerWindow(App& app, QWidget* owner);
    ~CompilerWindow() override;

protected:
    // The close box and Escape do what the Done button does.
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void BuildControls();
    void SyncForm();

    App& app_;
    FormPlacement placement_;
};

} // namespace tos::gui
