#pragma once

#include <QDialog>

#include "gui/control_views.h"

class QCloseEvent;
class QTableView;

namespace tos {
struct BatchForm;
}

namespace tos::gui {

// The "Process All" window over the batch form model: the batch list's path
// with Load and Save, a table view over the model's rows (gui/batch_table.h),
// and the summary of the last run.
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
    QTableView* BuildTable();
    void SyncForm();

    BatchForm& form_;
};

} // namespace tos::gui
