#include "gui/batch_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "batch/batch_form.h"
#include "gui/control_views.h"
#include "gui/cp1252.h"
#include "support/platform.h"

namespace tos::gui {

namespace {

enum Column {
    kProcess,
    kMaxFile,
    kBrowse,
    kObjectName,
    kUseTolvarine,
    kUseMax,
    kScale,
    kOffset,
};

} // namespace

BatchWindow::BatchWindow(BatchForm& form, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                         Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint),
      form_(form)
{
    setObjectName("frmProcessAll");
    setWindowTitle(FromCp1252(form.caption));
    BuildControls();
    BuildTable();
    resize(1100, 600);

    // The model outlives the window in tests; its notifiers must not reach a dead window.
    QPointer<BatchWindow> self(this);
    form.formView.Subscribe([self] {
        if (self)
            self->SyncForm();
    });
    form.rowsView.Subscribe([self] {
        if (self)
            self->BuildTable();
    });
    form.showModal = [self] {
        if (self)
            self->exec();
    };
}

BatchWindow::~BatchWindow()
{
    form_.showModal = nullptr;
}

void BatchWindow::BuildControls()
{
    auto* file = new QHBoxLayout;
    file->addWidget(MakeLabel(form_.lblBatchFile, this));
    file->addWidget(MakeTextBox(form_.txtBatchFile, this), 1);
    file->addWidget(MakeButton(form_.btnLoad, this));
    file->addWidget(MakeButton(form_.btnSave, this));

    table_ = new QScrollArea(this);
    table_->setObjectName("tableRows");
    table_->setWidgetResizable(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(MakeButton(form_.btnRunBatch, this));
    buttons->addStretch(1);
    buttons->addWidget(MakeButton(form_.btnClose, this));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(file);
    layout->addWidget(table_, 4);
    layout->addWidget(new QLabel(tr("Summary of the last run:"), this));
    layout->addWidget(MakeListBox(form_.lstSummary, this), 1);
    layout->addLayout(buttons);
}

void BatchWindow::BuildTable()
{
    // The former widgets go at once: the rows they mirror are about to go too.
    delete table_->takeWidget();
    auto* inner = new QWidget;
    auto* grid = new QGridLayout(inner);
    const std::pair<Column, const char*> headings[] = {
        {kProcess, "Process object"}, {kMaxFile, "MAX file"},      {kObjectName, "Object name"},
        {kUseTolvarine, "Name from"}, {kScale, "Vertical\nscale"}, {kOffset, "Vertical\noffset"},
    };
    for (const auto& [column, text] : headings)
        grid->addWidget(new QLabel(tr(text), inner), 0, column);
    int line = 1;
    for (const auto& row : form_.rows) {
        grid->addWidget(MakeCheckBox(row->chkProcess, inner), line, kProcess, Qt::AlignLeft);
        // Paths are long and names middling; the two numbers are short.
        QLineEdit* maxFile = MakeTextBox(row->txtMaxFile, inner);
        maxFile->setMinimumWidth(240);
        grid->addWidget(maxFile, line, kMaxFile);
        QPushButton* browse = MakeButton(row->btnBrowseMaxFile, inner);
        browse->setMaximumWidth(64);
        grid->addWidget(browse, line, kBrowse);
        QLineEdit* name = MakeTextBox(row->txtObjectName, inner);
        name->setMinimumWidth(120);
        grid->addWidget(name, line, kObjectName);
        grid->addWidget(MakeCheckBox(row->chkUseTolvarineName, inner), line, kUseTolvarine);
        grid->addWidget(MakeCheckBox(row->chkUseMaxName, inner), line, kUseMax);
        for (auto [box, column] : {std::pair{&row->txtVerticalScale, kScale},
                                   std::pair{&row->txtVerticalOffset, kOffset}}) {
            QLineEdit* edit = MakeTextBox(*box, inner);
            edit->setMaximumWidth(70);
            grid->addWidget(edit, line, column);
        }
        ++line;
    }
    grid->setColumnStretch(kMaxFile, 3);
    grid->setColumnStretch(kObjectName, 2);
    grid->setRowStretch(line, 1);
    table_->setWidget(inner);
}

void BatchWindow::SyncForm()
{
    if (!form_.visible && isVisible())
        hide();
    if (form_.mousePointer == kPointerHourglass)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void BatchWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    form_.btnClose.Click.Fire();
}

void BatchWindow::reject()
{
    form_.btnClose.Click.Fire();
}

} // namespace tos::gui
