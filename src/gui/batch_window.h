#pragma once

#include <QDialog>

#include "gui/control_views.h"

class QCloseEvent;
class QScrollArea;

namespace tos {
struct BatchForm;
}

namespace tos::gui {

// The "Process All" window over the batch form model: a table with one line of
// widgets per row of the model, the batch list's path with Load and Save, and
// the summary of the last run. The table is built anew whenever the model
// replaces its rows.
class BatchWindow : public QDialog {
    Q_OBJECT

public:
    // Registers itself as the model's modal view, owned by the main window.
    BatchWindow(BatchForm& form, QWidget* owner);
    ~BatchWindow() override;

protected:
    // The close box and Escape do what the Close button does.
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void BuildControls();
    void BuildTable();
    void SyncForm();

    BatchForm& form_;
    QScrollArea* table_ = nullptr;
};

} // namespace tos::gui
